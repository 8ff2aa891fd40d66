// Running a DO loop.
#pragma once

struct DoHeader;

// Runs the body, in parentheses or the lines up to ENDDO, as often as the header says. 0, or a result that
// ends the line: the loop was left for good.
int RunDo(DoHeader& header);
