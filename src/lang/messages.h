// Numbers of the texts in the language library.
//
// The shell's own error codes are 0x20000000 and up; the text of code c is resource c - 0x1FFFF448, that is
// 3000 + n. `errors` holds codes for MVError, `message` resource numbers for LoadMessage. Every name here has
// its text in english.rc (checked by a test), and no text stands anywhere else but help and reference.
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
constexpr unsigned numberTooLarge = 0x2000005B;      // 3091
constexpr unsigned valueType = 0x20000078;           // 3120
constexpr unsigned needsConsole = 0x20000079;        // 3121
constexpr unsigned noAliasList = 0x20000059;         // 3089
constexpr unsigned noHistoryList = 0x20000082;       // 3130
constexpr unsigned iniItem = 0x2000006E;             // 3110
constexpr unsigned iniCharacter = 0x2000006F;        // 3111
constexpr unsigned iniNumber = 0x20000070;           // 3112
constexpr unsigned iniChoice = 0x20000071;           // 3113
constexpr unsigned iniColor = 0x20000072;            // 3114
constexpr unsigned iniPath = 0x20000073;             // 3115
constexpr unsigned iniInclude = 0x20000074;          // 3116
constexpr unsigned iniIncludeDepth = 0x20000075;     // 3117
constexpr unsigned noInterpreter = 0x2000005F;       // 3095
constexpr unsigned invalidCodePage = 0x20000060;     // 3096
constexpr unsigned noIniFile = 0x20000096;           // 3150
constexpr unsigned noGlobalLists = 0x20000097;       // 3151
constexpr unsigned nothingKept = 0x20000098;         // 3152
constexpr unsigned invalidKey = 0x20000099;          // 3153
constexpr unsigned iniProtected = 0x2000026C;        // 3620
constexpr unsigned unknownUnit = 0x200002D0;         // 3720
constexpr unsigned unknownFileTime = 0x200002D1;     // 3721
constexpr unsigned unknownAttribute = 0x200002D2;    // 3722
constexpr unsigned unknownOpenMode = 0x200002D3;     // 3723
constexpr unsigned unknownTextKind = 0x200002D4;     // 3724
constexpr unsigned timerNotRunning = 0x20000280;     // 3640
constexpr unsigned invalidRegex = 0x200002BC;        // 3700
constexpr unsigned unknownDateForm = 0x200002BD;     // 3701
constexpr unsigned malformedText = 0x200002BE;       // 3702
constexpr unsigned noBuffer = 0x200002BF;            // 3703
constexpr unsigned tooManyBuffers = 0x200002C0;      // 3704
constexpr unsigned outsideBuffer = 0x200002C1;       // 3705
constexpr unsigned unknownChoice = 0x200002C2;       // 3706
constexpr unsigned unknownAlgorithm = 0x200002C3;    // 3707
constexpr unsigned checksumDiffers = 0x200002C4;     // 3708
constexpr unsigned invalidFormat = 0x200002C5;       // 3709
constexpr unsigned noChecksums = 0x200002C6;         // 3710
constexpr unsigned invalidUuid = 0x200002C7;         // 3711
} // namespace errors

namespace message {
constexpr unsigned copyright = 3300;
constexpr unsigned version = 3301;
constexpr unsigned usage = 3302;
constexpr unsigned removableDisk = 3342;
constexpr unsigned zoneWarning = 3368;
constexpr unsigned confirm = 3394;
constexpr unsigned iniQuery = 3395;
constexpr unsigned fromDefault = 3520; // where a setting's value comes from
constexpr unsigned fromParentShell = 3521;
constexpr unsigned fromStartOption = 3522;
constexpr unsigned fromCommand = 3523;
constexpr unsigned loadbtmState = 3540;
constexpr unsigned echoState = 3541;
constexpr unsigned more = 3542;
constexpr unsigned pressKey = 3543;
constexpr unsigned on = 3544;
constexpr unsigned off = 3545;
constexpr unsigned noPath = 3546;
constexpr unsigned unbuiltCount = 3547;
constexpr unsigned windowsVersion = 3548;
constexpr unsigned cancelBatch = 3549;
constexpr unsigned codePage = 3560;
constexpr unsigned currentDate = 3561;
constexpr unsigned newDate = 3562;
constexpr unsigned currentTime = 3563;
constexpr unsigned newTime = 3564;
constexpr unsigned logState = 3580;
constexpr unsigned outputLogState = 3581;
constexpr unsigned errorLogState = 3582;
constexpr unsigned historyLogState = 3583;
constexpr unsigned processId = 3550;
constexpr unsigned whichAlias = 3551;
constexpr unsigned whichInternal = 3552;
constexpr unsigned whichFunction = 3553;
constexpr unsigned whichProgram = 3554;
constexpr unsigned whichBatchFile = 3555;
constexpr unsigned whichExtension = 3556;
constexpr unsigned whichAssociated = 3557;
constexpr unsigned whichFile = 3558;
constexpr unsigned whichUnknown = 3559;
constexpr unsigned volumeLabel = 3600;
constexpr unsigned volumeWithoutLabel = 3601;
constexpr unsigned volumeSerial = 3602;
constexpr unsigned directoryOf = 3603;
constexpr unsigned fileCount = 3604;
constexpr unsigned directoryCount = 3605;
constexpr unsigned byteCount = 3606;
constexpr unsigned bytesFree = 3607;
constexpr unsigned totalListed = 3608;
constexpr unsigned directoryMark = 3609;
constexpr unsigned junctionMark = 3610;
constexpr unsigned directoryLinkMark = 3611;
constexpr unsigned fileLinkMark = 3612;
constexpr unsigned timerStarted = 3641;
constexpr unsigned timerStopped = 3642;
constexpr unsigned timerSplit = 3643;
constexpr unsigned breakState = 3644;
constexpr unsigned checksumRight = 3715;
} // namespace message
