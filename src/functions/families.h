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
int If_Function(FunctionCall& call);
