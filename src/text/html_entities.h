// The characters that web pages name.
#pragma once

#include <string_view>

// The character of "&name;" by its name ("auml"), whose case counts; NUL when there is none.
char16_t HtmlEntity(std::string_view name);
