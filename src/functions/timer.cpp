// What TIMER's stopwatches show.
#include "functions/arguments.h"
#include "functions/families.h"
#include "internals/clock_texts.h"
#include "lang/errors.h"

// @timer[n]: the time that stopwatch n (1 to 10) has run, "0:00:12.06"; nothing when it does not run.
int Timer_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"|n");
    if (arguments.Error() != 0)
        return arguments.Error();
    const std::int64_t timer = arguments.Number(0, 1);
    if (timer < 1 || timer > 10)
        return static_cast<int>(errors::invalidNumber);
    call.value = ElapsedTimeText(static_cast<int>(timer));
    return 0;
}
