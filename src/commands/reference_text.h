// The pages of the reference (docs/reference) as HELP shows them. A page is text with headings; a section
// stands under "## @left" or "## @isalpha, @isdigit" and reaches to the next heading of a section. Pure.
#pragma once

#include "text/cstring.h"

// The section about `name` ("@left", "_cwd", "errorlevel"), without its heading; empty when the page has
// none. Letter case does not count.
std::u16string_view ReferenceSection(std::u16string_view page, std::u16string_view name);

// The first sentence of the section's text, without its period.
CString ReferenceSummary(std::u16string_view section);

// The section for reading on a console: headed by `name`, with the marks of the page taken off. Lines are
// wrapped to `width` columns, 0 leaves them whole; they end with "\r\n".
CString ReferenceText(std::u16string_view name, std::u16string_view section, int width);
