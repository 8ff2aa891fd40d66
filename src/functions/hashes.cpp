// Checksums of files and texts.
//
// The argument is the name of a file; with the word "text" as the last argument a text, in UTF-8, with
// "utf16" a text in UTF-16.
#include "functions/families.h"

#include <optional>

#include "files/crc32.h"
#include "files/file_digest.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "text/compare.h"
#include "text/encoding.h"

namespace {

using View = std::u16string_view;

struct Subject {
    CString file;
    std::optional<std::string> bytes; // of a text
};

// 0, or the error for a name that is missing.
int ReadSubject(const FunctionCall& call, Subject& subject)
{
    const std::size_t comma = call.arguments.rfind(u',');
    if (comma != View::npos) {
        const View text = call.arguments.substr(0, comma);
        const CString kind = CString(call.arguments.substr(comma + 1)).Trim();
        if (EqualNoCase(kind, u"text"))
            subject.bytes = ToUtf8(text);
        else if (EqualNoCase(kind, u"utf16"))
            subject.bytes.emplace(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
    }
    subject.file = FileArgument(call.arguments);
    return subject.bytes || !subject.file.empty() ? 0 : answer::missingArgument;
}

int AnswerDigest(FunctionCall& call, DigestKind kind)
{
    Subject subject;
    if (const int code = ReadSubject(call, subject))
        return code;
    Digest digest(kind);
    if (subject.bytes)
        digest.Update(*subject.bytes);
    else if (!DigestFile(subject.file, {&digest, 1}))
        return SystemError();
    return answer::Text(call, HexDigits(digest.Finish()));
}

} // namespace

int Crc32_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Crc32); }
int Md5_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Md5); }
int Sha1_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Sha1); }
int Sha256_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Sha256); }
int Sha384_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Sha384); }
int Sha512_Function(FunctionCall& call) { return AnswerDigest(call, DigestKind::Sha512); }

// @cksum[file]: the checksum of POSIX, a decimal number.
int Cksum_Function(FunctionCall& call)
{
    Subject subject;
    if (const int code = ReadSubject(call, subject))
        return code;
    PosixChecksum checksum;
    if (subject.bytes)
        checksum.Update(*subject.bytes);
    else if (!ReadFileBlocks(subject.file, [&](std::string_view bytes) { checksum.Update(bytes); }))
        return SystemError();
    return answer::Number(call, checksum.Value());
}
