// The built-in variable functions, family by family. Each is declared here once, defined in its family's
// file, where what it takes and gives is told, and named in rows.cpp.
#pragma once

#include "engine/tables.h"

// strings.cpp
int Len_Function(FunctionCall& call);
int Upper_Function(FunctionCall& call);
int Lower_Function(FunctionCall& call);
int Caps_Function(FunctionCall& call);
int Left_Function(FunctionCall& call);
int Right_Function(FunctionCall& call);
int Substr_Function(FunctionCall& call);
int Index_Function(FunctionCall& call);
int Count_Function(FunctionCall& call);
int Insert_Function(FunctionCall& call);
int Replace_Function(FunctionCall& call);
int Strip_Function(FunctionCall& call);
int Filter_Function(FunctionCall& call);
int Trim_Function(FunctionCall& call);
int Ltrim_Function(FunctionCall& call);
int Rtrim_Function(FunctionCall& call);
int Trimall_Function(FunctionCall& call);
int Repeat_Function(FunctionCall& call);
int Reverse_Function(FunctionCall& call);
int Quote_Function(FunctionCall& call);
int Unquote_Function(FunctionCall& call);
int Unquotes_Function(FunctionCall& call);
int Format_Function(FunctionCall& call);

// word_functions.cpp
int Word_Function(FunctionCall& call);
int Words_Function(FunctionCall& call);
int Field_Function(FunctionCall& call);
int Fields_Function(FunctionCall& call);
int Parse_Function(FunctionCall& call);

// characters.cpp
int Ascii_Function(FunctionCall& call);
int Asciix_Function(FunctionCall& call);
int Unicode_Function(FunctionCall& call);
int Unicodex_Function(FunctionCall& call);
int Char_Function(FunctionCall& call);
int Isalnum_Function(FunctionCall& call);
int Isalpha_Function(FunctionCall& call);
int Isascii_Function(FunctionCall& call);
int Iscntrl_Function(FunctionCall& call);
int Isdigit_Function(FunctionCall& call);
int Islower_Function(FunctionCall& call);
int Isprint_Function(FunctionCall& call);
int Ispunct_Function(FunctionCall& call);
int Isspace_Function(FunctionCall& call);
int Isupper_Function(FunctionCall& call);
int Isxdigit_Function(FunctionCall& call);
int Digits_Function(FunctionCall& call);
int Talnum_Function(FunctionCall& call);
int Talpha_Function(FunctionCall& call);
int Tascii_Function(FunctionCall& call);
int Tdigit_Function(FunctionCall& call);
int Tlower_Function(FunctionCall& call);
int Tprint_Function(FunctionCall& call);
int Tpunct_Function(FunctionCall& call);
int Tspace_Function(FunctionCall& call);
int Tupper_Function(FunctionCall& call);
int Txdigit_Function(FunctionCall& call);

// exec.cpp
int Exec_Function(FunctionCall& call);
int Execstr_Function(FunctionCall& call);

// numbers.cpp
int Eval_Function(FunctionCall& call);
int Inc_Function(FunctionCall& call);
int Dec_Function(FunctionCall& call);
int Abs_Function(FunctionCall& call);
int Ceiling_Function(FunctionCall& call);
int Floor_Function(FunctionCall& call);
int Int_Function(FunctionCall& call);
int Decimal_Function(FunctionCall& call);
int Max_Function(FunctionCall& call);
int Min_Function(FunctionCall& call);
int Average_Function(FunctionCall& call);
int Numeric_Function(FunctionCall& call);
int Isfloat_Function(FunctionCall& call);
int Comma_Function(FunctionCall& call);
int Convert_Function(FunctionCall& call);
int Formatn_Function(FunctionCall& call);
int Formatnc_Function(FunctionCall& call);
int Random_Function(FunctionCall& call);
int Timer_Function(FunctionCall& call);
int If_Function(FunctionCall& call);

// file_name_parts.cpp
int Path_Function(FunctionCall& call);
int Filename_Function(FunctionCall& call);
int Name_Function(FunctionCall& call);
int Ext_Function(FunctionCall& call);
int Device_Function(FunctionCall& call);

// file_names.cpp
int Full_Function(FunctionCall& call);
int Lfn_Function(FunctionCall& call);
int Sfn_Function(FunctionCall& call);
int Altname_Function(FunctionCall& call);
int Truename_Function(FunctionCall& call);
int Drive_Function(FunctionCall& call);
int Search_Function(FunctionCall& call);
int Unique_Function(FunctionCall& call);
int Uniquex_Function(FunctionCall& call);
int Wild_Function(FunctionCall& call);
int Cwd_Function(FunctionCall& call);
int Cwds_Function(FunctionCall& call);
int Dirstack_Function(FunctionCall& call);
int Shfolder_Function(FunctionCall& call);
int Wslpath_Function(FunctionCall& call);
int Wslname_Function(FunctionCall& call);

// file_facts.cpp
int Filedate_Function(FunctionCall& call);
int Filetime_Function(FunctionCall& call);
int Fileage_Function(FunctionCall& call);
int Attrib_Function(FunctionCall& call);
int Wattrib_Function(FunctionCall& call);
int Owner_Function(FunctionCall& call);
int Descript_Function(FunctionCall& call);
int Inode_Function(FunctionCall& call);
int Links_Function(FunctionCall& call);
int Junction_Function(FunctionCall& call);
int Symlink_Function(FunctionCall& call);
int Exetype_Function(FunctionCall& call);
int Filetype_Function(FunctionCall& call);
int Compare_Function(FunctionCall& call);
int Filelock_Function(FunctionCall& call);
int Verinfo_Function(FunctionCall& call);
int Properties_Function(FunctionCall& call);
int Summary_Function(FunctionCall& call);
int Assoc_Function(FunctionCall& call);
int Ftype_Function(FunctionCall& call);

// file_handles.cpp
int Fileopen_Function(FunctionCall& call);
int Fileclose_Function(FunctionCall& call);
int Filehandle_Function(FunctionCall& call);
int Fileread_Function(FunctionCall& call);
int Filereadb_Function(FunctionCall& call);
int Filewrite_Function(FunctionCall& call);
int Filewriteb_Function(FunctionCall& call);
int Fileseek_Function(FunctionCall& call);
int Fileseekl_Function(FunctionCall& call);
int Truncate_Function(FunctionCall& call);

// file_lines.cpp
int Line_Function(FunctionCall& call);
int Lines_Function(FunctionCall& call);

// file_searches.cpp
int Files_Function(FunctionCall& call);
int Folders_Function(FunctionCall& call);
int Filesize_Function(FunctionCall& call);
int Expand_Function(FunctionCall& call);
int Findfirst_Function(FunctionCall& call);
int Findnext_Function(FunctionCall& call);
int Findclose_Function(FunctionCall& call);

// drives.cpp
int Diskfree_Function(FunctionCall& call);
int Diskused_Function(FunctionCall& call);
int Disktotal_Function(FunctionCall& call);
int Label_Function(FunctionCall& call);
int Fstype_Function(FunctionCall& call);
int Serial_Function(FunctionCall& call);
int Ready_Function(FunctionCall& call);
int Removable_Function(FunctionCall& call);
int Remote_Function(FunctionCall& call);
int Cdrom_Function(FunctionCall& call);
int Usb_Function(FunctionCall& call);
int Drivetype_Function(FunctionCall& call);
int Drivetypeex_Function(FunctionCall& call);
int Mediatype_Function(FunctionCall& call);
int Bustype_Function(FunctionCall& call);
int Serialhw_Function(FunctionCall& call);
int Subst_Function(FunctionCall& call);
int Unc_Function(FunctionCall& call);

// ini_functions.cpp
int Iniread_Function(FunctionCall& call);
int Iniwrite_Function(FunctionCall& call);
// matching.cpp
int Email_Function(FunctionCall& call);
int Regex_Function(FunctionCall& call);
int Regexindex_Function(FunctionCall& call);
int Regexsub_Function(FunctionCall& call);
int Rereplace_Function(FunctionCall& call);

// likeness.cpp
int Similar_Function(FunctionCall& call);
int Lcs_Function(FunctionCall& call);
int Version_Function(FunctionCall& call);

// primes.cpp
int Isprime_Function(FunctionCall& call);
int Prime_Function(FunctionCall& call);

// date_functions.cpp
int Year_Function(FunctionCall& call);
int Month_Function(FunctionCall& call);
int Day_Function(FunctionCall& call);
int Doy_Function(FunctionCall& call);
int Dow_Function(FunctionCall& call);
int Dowf_Function(FunctionCall& call);
int Idow_Function(FunctionCall& call);
int Idowf_Function(FunctionCall& call);
int Dowi_Function(FunctionCall& call);
int Isodowi_Function(FunctionCall& call);
int Isoweek_Function(FunctionCall& call);
int Isowyear_Function(FunctionCall& call);
int Date_Function(FunctionCall& call);
int Makedate_Function(FunctionCall& call);
int Dateconv_Function(FunctionCall& call);
int Datefmt_Function(FunctionCall& call);
int Time_Function(FunctionCall& call);
int Maketime_Function(FunctionCall& call);
int Makeage_Function(FunctionCall& call);
int Agedate_Function(FunctionCall& call);

// text_codings.cpp
int Urlencode_Function(FunctionCall& call);
int Urldecode_Function(FunctionCall& call);
int Htmlencode_Function(FunctionCall& call);
int Htmldecode_Function(FunctionCall& call);
int Punyencode_Function(FunctionCall& call);
int Punydecode_Function(FunctionCall& call);

// byte_codings.cpp
int B64encode_Function(FunctionCall& call);
int B64decode_Function(FunctionCall& call);
int Hexencode_Function(FunctionCall& call);
int Hexdecode_Function(FunctionCall& call);
int Qpencode_Function(FunctionCall& call);
int Qpdecode_Function(FunctionCall& call);
int Uuencode_Function(FunctionCall& call);
int Uudecode_Function(FunctionCall& call);
int Yencode_Function(FunctionCall& call);
int Ydecode_Function(FunctionCall& call);
int Utf8encode_Function(FunctionCall& call);
int Utf8decode_Function(FunctionCall& call);

// hashes.cpp
int Crc32_Function(FunctionCall& call);
int Md5_Function(FunctionCall& call);
int Sha1_Function(FunctionCall& call);
int Sha256_Function(FunctionCall& call);
int Sha384_Function(FunctionCall& call);
int Sha512_Function(FunctionCall& call);
int Cksum_Function(FunctionCall& call);

// buffers.cpp
int Balloc_Function(FunctionCall& call);
int Bfree_Function(FunctionCall& call);
int Bsize_Function(FunctionCall& call);
int Bpeek_Function(FunctionCall& call);
int Bpoke_Function(FunctionCall& call);
int Bpeekstr_Function(FunctionCall& call);
int Bpokestr_Function(FunctionCall& call);
int Bread_Function(FunctionCall& call);
int Bwrite_Function(FunctionCall& call);

// array_functions.cpp
int Filearray_Function(FunctionCall& call);
int Arrayinfo_Function(FunctionCall& call);
int Arrayize_Function(FunctionCall& call);
int Execarray_Function(FunctionCall& call);

// definitions.cpp
int Vartype_Function(FunctionCall& call);
int Alias_Function(FunctionCall& call);
int Function_Function(FunctionCall& call);

// uuids.cpp
int Uuid_Function(FunctionCall& call);

// registry.cpp
int Regcreate_Function(FunctionCall& call);
int Regdelkey_Function(FunctionCall& call);
int Regcopykey_Function(FunctionCall& call);
int Regexist_Function(FunctionCall& call);
int Regquery_Function(FunctionCall& call);
int Regtype_Function(FunctionCall& call);
int Regset_Function(FunctionCall& call);
int Regsetenv_Function(FunctionCall& call);
int Regbread_Function(FunctionCall& call);
int Regbwrite_Function(FunctionCall& call);

// processes.cpp
int Systemtime_Function(FunctionCall& call);
int Isproc_Function(FunctionCall& call);
int Pid_Function(FunctionCall& call);
int Ppid_Function(FunctionCall& call);
int Pidcommand_Function(FunctionCall& call);
int Piduser_Function(FunctionCall& call);
int Priority_Function(FunctionCall& call);
int Processio_Function(FunctionCall& call);
int Processtime_Function(FunctionCall& call);
int Handleinfo_Function(FunctionCall& call);
int Console_Function(FunctionCall& call);
int Dosmem_Function(FunctionCall& call);
int Winmemory_Function(FunctionCall& call);
int Errtext_Function(FunctionCall& call);
int Debug_Function(FunctionCall& call);

// windows.cpp
int Snapshot_Function(FunctionCall& call);
int Wintitle_Function(FunctionCall& call);
int Winclass_Function(FunctionCall& call);
int Winpid_Function(FunctionCall& call);
int Winexename_Function(FunctionCall& call);
int Winpath_Function(FunctionCall& call);
int Winpos_Function(FunctionCall& call);
int Winsize_Function(FunctionCall& call);
int Winclientsize_Function(FunctionCall& call);
int Winstate_Function(FunctionCall& call);
int Wininfo_Function(FunctionCall& call);
int Winmetrics_Function(FunctionCall& call);
int Winsystem_Function(FunctionCall& call);
int Mouse_Function(FunctionCall& call);

// clipboards.cpp
int Clip_Function(FunctionCall& call);
int Clipw_Function(FunctionCall& call);
int Clipwn_Function(FunctionCall& call);
int Tmp_Function(FunctionCall& call);
int Tmpwn_Function(FunctionCall& call);

// lists.cpp
int Option_Function(FunctionCall& call);
int History_Function(FunctionCall& call);
int Xhistory_Function(FunctionCall& call);
int Color_Function(FunctionCall& call);

// network.cpp
int Ipaddressn_Function(FunctionCall& call);
int Ipother_Function(FunctionCall& call);
int Ipsubnet_Function(FunctionCall& call);
int Ipbroadcast_Function(FunctionCall& call);
int Ipgateway_Function(FunctionCall& call);
int Ipipv6n_Function(FunctionCall& call);
int Ipipv6ll_Function(FunctionCall& call);
int Ipotherl_Function(FunctionCall& call);
int Ipzoneid_Function(FunctionCall& call);
int Ipnamen_Function(FunctionCall& call);
int Ipdesc_Function(FunctionCall& call);
int Ipphysical_Function(FunctionCall& call);
int Ipdns_Function(FunctionCall& call);
int Ipdhcp_Function(FunctionCall& call);
int Ipdhcpenabled_Function(FunctionCall& call);
int Ipobtained_Function(FunctionCall& call);
int Ipexpires_Function(FunctionCall& call);
int Ipstatus_Function(FunctionCall& call);
int Iptype_Function(FunctionCall& call);
int Ipwins_Function(FunctionCall& call);
int Ipwinsserver_Function(FunctionCall& call);
int Ipwinsserver2_Function(FunctionCall& call);
int Ipaddress_Function(FunctionCall& call);
int Ipname_Function(FunctionCall& call);
int Ipaliases_Function(FunctionCall& call);
int Ipport_Function(FunctionCall& call);
int Ipservicealiases_Function(FunctionCall& call);
int Macaddress_Function(FunctionCall& call);
int Mx_Function(FunctionCall& call);
int Ping_Function(FunctionCall& call);
int Pingr_Function(FunctionCall& call);

// shared_memory.cpp
int Smopen_Function(FunctionCall& call);
int Smclose_Function(FunctionCall& call);
int Smread_Function(FunctionCall& call);
int Smwrite_Function(FunctionCall& call);
int Smpeek_Function(FunctionCall& call);
int Smpoke_Function(FunctionCall& call);

// machines.cpp
int Computername_Function(FunctionCall& call);
int Domain_Function(FunctionCall& call);
int Workgroup_Function(FunctionCall& call);
int Group_Function(FunctionCall& call);
int Server_Function(FunctionCall& call);
int Enumservers_Function(FunctionCall& call);
int Enumshares_Function(FunctionCall& call);
int Service_Function(FunctionCall& call);

// screen.cpp
int Readscr_Function(FunctionCall& call);
int Readattrib_Function(FunctionCall& call);
int Consoleb_Function(FunctionCall& call);
int Font_Function(FunctionCall& call);

// dialogs.cpp
int Getfile_Function(FunctionCall& call);
int Getdir_Function(FunctionCall& call);
int Getfolder_Function(FunctionCall& call);
int Getdate_Function(FunctionCall& call);
int Getdatetime_Function(FunctionCall& call);
int Select_Function(FunctionCall& call);
int Selectarray_Function(FunctionCall& call);

// library_calls.cpp
int Capi_Function(FunctionCall& call);
