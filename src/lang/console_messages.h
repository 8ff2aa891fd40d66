// Codes and texts of the line editor, completion, lists, windows and the screen: 4030 to 4199 and 4350 to
// 4379.
#pragma once

namespace errors {
constexpr unsigned noCompletionFile = 0x2000042E;    // 4070
constexpr unsigned noFileList = 0x2000042F;          // 4071
constexpr unsigned offScreen = 0x20000460;           // 4120
constexpr unsigned clipboardEmpty = 0x20000461;      // 4121
constexpr unsigned clipboardOfPipe = 0x20000462;     // 4122
constexpr unsigned noWindow = 0x20000463;            // 4123
constexpr unsigned unknownKey = 0x20000464;          // 4124
constexpr unsigned unknownButtons = 0x20000465;      // 4125
constexpr unsigned cannotPlay = 0x20000466;          // 4126
constexpr unsigned unknownWindowAction = 0x20000467; // 4127
constexpr unsigned boxCorners = 0x20000546;          // 4350
constexpr unsigned noConsoleWindow = 0x20000547;     // 4351
constexpr unsigned noHelp = 0x20000548;              // 4352
constexpr unsigned noDesktop = 0x20000468;           // 4128
constexpr unsigned consoleFont = 0x20000469;         // 4129
constexpr unsigned screenMode = 0x2000046E;          // 4134
constexpr unsigned unknownKeyFunction = 0x2000046F;  // 4135
constexpr unsigned notAHistory = 0x2000047E;         // 4150
constexpr unsigned noStatusBar = 0x2000047F;         // 4151
} // namespace errors

namespace message {
constexpr unsigned extendedHistoryTitle = 4040;
constexpr unsigned extendedHistoryKeys = 4041;
constexpr unsigned selectKeys = 4073;
constexpr unsigned selectOneKeys = 4074;
constexpr unsigned moreTopics = 4075;
constexpr unsigned keyState = 4130;
constexpr unsigned capsLock = 4131;
constexpr unsigned numLock = 4132;
constexpr unsigned scrollLock = 4133;
constexpr unsigned okButton = 4140;
constexpr unsigned cancelButton = 4141;
constexpr unsigned transientState = 4142;
constexpr unsigned keysState = 4143;
constexpr unsigned unboundKey = 4144;
constexpr unsigned statusbarState = 4152;
constexpr unsigned morePages = 4353;
} // namespace message
