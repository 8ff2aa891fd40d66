// Where junctions and symbolic links lead to, as it is written in them.
#pragma once

#include <string_view>

#include "text/link_record.h"

LinkTarget ReadLinkTarget(std::u16string_view name);
