// Codes and texts of the variable functions, and of what tells about the system: 3700 to 3762.
#pragma once

namespace errors {
constexpr unsigned invalidRegex = 0x200002BC;      // 3700
constexpr unsigned unknownDateForm = 0x200002BD;   // 3701
constexpr unsigned malformedText = 0x200002BE;     // 3702
constexpr unsigned noBuffer = 0x200002BF;          // 3703
constexpr unsigned tooManyBuffers = 0x200002C0;    // 3704
constexpr unsigned outsideBuffer = 0x200002C1;     // 3705
constexpr unsigned unknownChoice = 0x200002C2;     // 3706
constexpr unsigned unknownAlgorithm = 0x200002C3;  // 3707
constexpr unsigned checksumDiffers = 0x200002C4;   // 3708
constexpr unsigned invalidFormat = 0x200002C5;     // 3709
constexpr unsigned noChecksums = 0x200002C6;       // 3710
constexpr unsigned invalidUuid = 0x200002C7;       // 3711
constexpr unsigned unknownUnit = 0x200002D0;       // 3720
constexpr unsigned unknownFileTime = 0x200002D1;   // 3721
constexpr unsigned unknownAttribute = 0x200002D2;  // 3722
constexpr unsigned unknownOpenMode = 0x200002D3;   // 3723
constexpr unsigned unknownTextKind = 0x200002D4;   // 3724
constexpr unsigned noProcess = 0x200002E4;         // 3740
constexpr unsigned noAdapter = 0x200002E6;         // 3742
constexpr unsigned noHost = 0x200002E7;            // 3743
constexpr unsigned noSharedMemory = 0x200002E8;    // 3744
constexpr unsigned noProcessVariable = 0x200002E9; // 3745
constexpr unsigned noSuchError = 0x200002EA;       // 3746
} // namespace errors

namespace message {
constexpr unsigned checksumRight = 3715;
constexpr unsigned memoryLoad = 3750;
constexpr unsigned memoryPhysical = 3751;
constexpr unsigned memoryCommit = 3752;
constexpr unsigned memoryAddresses = 3753;
constexpr unsigned memoryFree = 3754;
constexpr unsigned memoryAliases = 3755;
constexpr unsigned memoryFunctions = 3756;
constexpr unsigned memoryHistory = 3757;
constexpr unsigned memoryDirHistory = 3758;
constexpr unsigned listLocal = 3759;
constexpr unsigned listGlobal = 3760;
constexpr unsigned uptimeDay = 3761;
constexpr unsigned uptimeDays = 3762;
} // namespace message
