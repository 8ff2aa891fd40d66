// How a text file is encoded, by its first block and the setting UTF8.
#pragma once

#include <string_view>

#include "text/encoding.h"

// As RecogniseEncoding tells; while UTF8 is off, a file without a mark is never taken for UTF-8.
RecognisedEncoding RecogniseTextFile(std::string_view block);
