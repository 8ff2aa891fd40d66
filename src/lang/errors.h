// The shell's own error codes that any part of it may report, for MVError.
//
// They are 0x20000000 and up; the text of code c is resource c - 0x1FFFF448 of the language library, that is
// 3000 + n. Codes of one family of commands stand in that family's header beside this one, so that a new one
// touches few files. Every name here has its text in english.rc (checked by a test), and no text stands
// anywhere else but help and reference.
#pragma once

constexpr unsigned MessageNumber(unsigned code) { return code - 0x1FFFF448u; }
constexpr unsigned MessageCode(unsigned number) { return number + 0x1FFFF448u; }

namespace errors {
constexpr unsigned syntax = 0x20000000;              // 3000
constexpr unsigned unknownCommand = 0x20000001;      // 3001
constexpr unsigned unclosedQuote = 0x20000003;       // 3003
constexpr unsigned invalidSwitch = 0x20000004;       // 3004
constexpr unsigned missingArgument = 0x20000005;     // 3005
constexpr unsigned invalidNumber = 0x20000006;       // 3006
constexpr unsigned invalidDate = 0x20000007;         // 3007
constexpr unsigned invalidTime = 0x20000008;         // 3008
constexpr unsigned unbuiltCommand = 0x20000009;      // 3009
constexpr unsigned unbuiltDialog = 0x2000000A;       // 3010
constexpr unsigned unsupportedFunction = 0x2000000B; // 3011
constexpr unsigned unknownFunction = 0x2000000C;     // 3012
constexpr unsigned aliasLoop = 0x2000000F;           // 3015
constexpr unsigned variableLoop = 0x20000010;        // 3016
constexpr unsigned unknownCommandLoop = 0x20000011;  // 3017
constexpr unsigned associationLoop = 0x20000012;     // 3018
constexpr unsigned notAnAlias = 0x20000013;          // 3019
constexpr unsigned notInEnvironment = 0x20000014;    // 3020
constexpr unsigned listFileLine = 0x20000015;        // 3021
constexpr unsigned labelNotFound = 0x20000017;       // 3023
constexpr unsigned aliasListFull = 0x20000019;       // 3025
constexpr unsigned batchOnly = 0x2000001C;           // 3028
constexpr unsigned cannotOpenBatchFile = 0x2000001D; // 3029
constexpr unsigned batchNesting = 0x2000001E;        // 3030
constexpr unsigned packedFileCheck = 0x2000001F;     // 3031
constexpr unsigned localNesting = 0x20000020;        // 3032
constexpr unsigned noLocal = 0x20000021;             // 3033
constexpr unsigned noGosub = 0x20000022;             // 3034
constexpr unsigned unfinishedBlock = 0x20000026;     // 3038
constexpr unsigned missingParenthesis = 0x20000026;  // 3038 too: the evaluator's ")"
constexpr unsigned divisionByZero = 0x2000002A;      // 3042
constexpr unsigned noFunctionList = 0x20000031;      // 3049
constexpr unsigned notAFunction = 0x20000032;        // 3050
constexpr unsigned functionListFull = 0x20000045;    // 3069
constexpr unsigned directoryStackEmpty = 0x20000046; // 3070
constexpr unsigned directoryStackFull = 0x20000047;  // 3071
constexpr unsigned invalidColor = 0x20000048;        // 3072
constexpr unsigned notAnArray = 0x20000051;          // 3081
constexpr unsigned arrayTableFull = 0x20000052;      // 3082
constexpr unsigned arrayIndex = 0x20000053;          // 3083
constexpr unsigned tooManyCommands = 0x20000055;     // 3085
constexpr unsigned nestedTooDeep = 0x20000057;       // 3087
constexpr unsigned lineTooLong = 0x20000058;         // 3088
constexpr unsigned noAliasList = 0x20000059;         // 3089
constexpr unsigned numberTooLarge = 0x2000005B;      // 3091
constexpr unsigned noInterpreter = 0x2000005F;       // 3095
constexpr unsigned invalidCodePage = 0x20000060;     // 3096
constexpr unsigned iniItem = 0x2000006E;             // 3110
constexpr unsigned iniCharacter = 0x2000006F;        // 3111
constexpr unsigned iniNumber = 0x20000070;           // 3112
constexpr unsigned iniChoice = 0x20000071;           // 3113
constexpr unsigned iniColor = 0x20000072;            // 3114
constexpr unsigned iniPath = 0x20000073;             // 3115
constexpr unsigned iniInclude = 0x20000074;          // 3116
constexpr unsigned iniIncludeDepth = 0x20000075;     // 3117
constexpr unsigned valueType = 0x20000078;           // 3120
constexpr unsigned needsConsole = 0x20000079;        // 3121
constexpr unsigned noHistoryList = 0x20000082;       // 3130
constexpr unsigned noIniFile = 0x20000096;           // 3150
constexpr unsigned noGlobalLists = 0x20000097;       // 3151
constexpr unsigned nothingKept = 0x20000098;         // 3152
constexpr unsigned invalidKey = 0x20000099;          // 3153
constexpr unsigned iniProtected = 0x2000026C;        // 3620
constexpr unsigned timerNotRunning = 0x20000280;     // 3640
constexpr unsigned noSuchJob = 0x20000285;           // 3645
constexpr unsigned noEndIff = 0x20000287;            // 3647
constexpr unsigned noSuchThread = 0x20000288;        // 3648
constexpr unsigned zippedFile = 0x200002A8;          // 3680
constexpr unsigned alreadyPacked = 0x200002A9;       // 3681
constexpr unsigned textTooLong = 0x200002AA;         // 3682
constexpr unsigned onlyMemoryRuns = 0x200002AB;      // 3683
} // namespace errors
