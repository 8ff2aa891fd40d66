"""Prompts."""

from registry import case


@case("the prompt is expanded anew each time")
def changing_prompt(console):
    console.start(PROMPT="[%x%]")
    console.shows("[]")
    console.line("set x=5")
    console.shows("[]set x=5", "[5]")


@case("the continuation prompt is that of PROMPT2")
def own_continuation_prompt(console):
    console.start(PROMPT2="$P:")
    console.line("(")
    console.ends_with("C:\\t\\console:")
    console.line("echo inside")
    console.ends_with("C:\\t\\console:echo inside", "C:\\t\\console:")
    console.line(")")
    console.ends_with("inside", ">")
