// The internal variables, family by family. Each is declared here once, defined in its family's file and
// named in rows.cpp.
#pragma once

#include "engine/tables.h"

// shell_state.cpp
bool LastResult_Variable(CString& value);
bool Batch_Variable(CString& value);
bool Batchlabel_Variable(CString& value);
bool Batchline_Variable(CString& value);
bool Batchname_Variable(CString& value);
bool Batchpath_Variable(CString& value);
bool Batchtype_Variable(CString& value);
bool Pbatchname_Variable(CString& value);
bool Echo_Variable(CString& value);
bool Expansion_Variable(CString& value);
bool Exit_Variable(CString& value);
bool Transient_Variable(CString& value);
bool Pipe_Variable(CString& value);
bool Shell_Variable(CString& value);
bool Syserr_Variable(CString& value);
bool Shralias_Variable(CString& value);
bool Startpid_Variable(CString& value);
bool Detachpid_Variable(CString& value);
bool Cmdproc_Variable(CString& value);
bool Cmdspec_Variable(CString& value);
bool Ininame_Variable(CString& value);
bool Startpath_Variable(CString& value);
bool Orvrun_Variable(CString& value);
bool Dname_Variable(CString& value);
bool Version_Variable(CString& value);
bool Orvver_Variable(CString& value);
bool Vermajor_Variable(CString& value);
bool Verminor_Variable(CString& value);
bool Build_Variable(CString& value);
bool Columns_Variable(CString& value);
bool Rows_Variable(CString& value);
bool Codepage_Variable(CString& value);
bool Ansi_Variable(CString& value);
bool Stdin_Variable(CString& value);
bool Stdout_Variable(CString& value);
bool Stderr_Variable(CString& value);

// system_facts.cpp
bool Dos_Variable(CString& value);
bool Winver_Variable(CString& value);
bool Dosver_Variable(CString& value);
bool Osbuild_Variable(CString& value);
bool Osbuildex_Variable(CString& value);
bool Windir_Variable(CString& value);
bool Winsysdir_Variable(CString& value);
bool Wow64dir_Variable(CString& value);
bool Boot_Variable(CString& value);
bool Winticks_Variable(CString& value);
bool Winuser_Variable(CString& value);
bool Host_Variable(CString& value);
bool Pid_Variable(CString& value);
bool Ppid_Variable(CString& value);
bool Parent_Variable(CString& value);
bool Cpu_Variable(CString& value);
bool X64_Variable(CString& value);
bool Elevated_Variable(CString& value);

// directories.cpp
bool Cwd_Variable(CString& value);
bool Cwds_Variable(CString& value);
bool Cwp_Variable(CString& value);
bool Cwps_Variable(CString& value);
bool Disk_Variable(CString& value);
bool Lastdir_Variable(CString& value);
bool Lastdisk_Variable(CString& value);
bool Drives_Variable(CString& value);

// dates.cpp
bool Year_Variable(CString& value);
bool Month_Variable(CString& value);
bool Day_Variable(CString& value);
bool Hour_Variable(CString& value);
bool Minute_Variable(CString& value);
bool Second_Variable(CString& value);
bool Monthf_Variable(CString& value);
bool Imonth_Variable(CString& value);
bool Imonthf_Variable(CString& value);
bool Dowf_Variable(CString& value);
bool Idow_Variable(CString& value);
bool Idowf_Variable(CString& value);
bool Dow_Variable(CString& value);
bool Dowi_Variable(CString& value);
bool Doy_Variable(CString& value);
bool Isodowi_Variable(CString& value);
bool Isoweek_Variable(CString& value);
bool Isowyear_Variable(CString& value);
bool Isowdate_Variable(CString& value);
bool Isordate_Variable(CString& value);
bool Date_Variable(CString& value);
bool Time_Variable(CString& value);
bool Isodate_Variable(CString& value);
bool Datetime_Variable(CString& value);
bool Utcdate_Variable(CString& value);
bool Utctime_Variable(CString& value);
bool Utcisodate_Variable(CString& value);
bool Utcdatetime_Variable(CString& value);
bool Utchour_Variable(CString& value);
bool Utcminute_Variable(CString& value);
bool Utcsecond_Variable(CString& value);
bool Dst_Variable(CString& value);
bool Tzn_Variable(CString& value);
bool Tzo_Variable(CString& value);
bool Stzn_Variable(CString& value);
bool Stzo_Variable(CString& value);
bool Timezone_Variable(CString& value);
