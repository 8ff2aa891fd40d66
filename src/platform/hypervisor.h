// What kind of machine this is: a real one, or one that a program makes up.
#pragma once

#include <string_view>

// The twelve characters by which a virtual machine's monitor makes itself known to the processor's guests,
// such as "VMwareVMware"; empty on a real machine. A system that itself is the root of its hypervisor counts
// as a real machine.
std::string_view HypervisorName();
