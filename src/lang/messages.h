// Resource numbers of the texts about the session, its settings, scripts and programs, for LoadMessage.
#pragma once

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
constexpr unsigned whichDrive = 4321;
constexpr unsigned whichDirectory = 4322;
constexpr unsigned codePage = 3560;
constexpr unsigned currentDate = 3561;
constexpr unsigned newDate = 3562;
constexpr unsigned currentTime = 3563;
constexpr unsigned newTime = 3564;
constexpr unsigned logState = 3580;
constexpr unsigned outputLogState = 3581;
constexpr unsigned errorLogState = 3582;
constexpr unsigned historyLogState = 3583;
constexpr unsigned timerStarted = 3641;
constexpr unsigned timerStopped = 3642;
constexpr unsigned timerSplit = 3643;
constexpr unsigned breakState = 3644;
constexpr unsigned jobEnded = 3646;
constexpr unsigned packedInto = 3685;
} // namespace message
