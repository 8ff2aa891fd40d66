// Texts as web addresses, web pages and names of the Internet write them.
#include "functions/families.h"

#include "functions/answers.h"
#include "lang/function_messages.h"
#include "text/encoding.h"
#include "text/punycode.h"
#include "text/web_text.h"

namespace {

int AnswerDomain(FunctionCall& call, const std::optional<CString>& name)
{
    return name ? answer::ForeignText(call, *name) : static_cast<int>(errors::malformedText);
}

} // namespace

// @urlencode, @urldecode[text]: "%20" and the like, of UTF-8.
int Urlencode_Function(FunctionCall& call) { return answer::ForeignText(call, EncodeUrl(call.arguments)); }
int Urldecode_Function(FunctionCall& call) { return answer::ForeignText(call, DecodeUrl(call.arguments)); }

// @htmlencode, @htmldecode[text]: "&amp;" and the like.
int Htmlencode_Function(FunctionCall& call) { return answer::ForeignText(call, EncodeHtml(call.arguments)); }
int Htmldecode_Function(FunctionCall& call) { return answer::ForeignText(call, DecodeHtml(call.arguments)); }

// @punyencode, @punydecode[name]: the labels "xn--...".
int Punyencode_Function(FunctionCall& call) { return AnswerDomain(call, EncodeDomain(call.arguments)); }
int Punydecode_Function(FunctionCall& call) { return AnswerDomain(call, DecodeDomain(call.arguments)); }
