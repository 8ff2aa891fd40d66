// The buffers of @balloc, for functions that fill them from elsewhere.
#pragma once

#include <cstdint>
#include <string>

// Null when there is none of that number. Its size must stay.
std::string* FindBuffer(std::int64_t number);
