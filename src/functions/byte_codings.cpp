// Bytes written as text and read back.
//
// A text is taken as UTF-8. With the word "file" as the last argument, a file is taken: "name,file" gives the
// answer itself, "name,target,file" writes it into another file and gives the number of bytes in there.
// uuencode and yEnc are for files only, and do without the word.
#include "functions/families.h"

#include <functional>
#include <string>
#include <vector>

#include "engine/break.h"
#include "expand/expansion.h"
#include "files/byte_coding.h"
#include "files/text_reader.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/function_messages.h"
#include "platform/byte_files.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/path_names.h"

namespace {

using View = std::u16string_view;
using Sink = std::function<bool(std::string_view bytes)>;

constexpr int malformed = static_cast<int>(errors::malformedText);

struct Source {
    bool isFile = false;
    View text;      // when it is none
    CString name;   // of the file
    CString target; // empty: the answer is wanted
};

// 0, or the error when names are missing.
int ReadSource(const FunctionCall& call, bool filesOnly, Source& source)
{
    std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    const bool said =
        pieces.size() > 1 && pieces.size() <= 3 && EqualNoCase(FileArgument(pieces.back()), u"file");
    source.text = call.arguments;
    source.isFile = said || filesOnly;
    if (!source.isFile)
        return 0;
    if (said)
        pieces.pop_back();
    source.name = FileArgument(pieces[0]);
    source.target = pieces.size() > 1 ? FileArgument(pieces[1]) : CString();
    const bool enough = !source.name.empty() && (said || !source.target.empty()) && pieces.size() <= 2;
    return enough ? 0 : answer::missingArgument;
}

// Everything of the source through the coder into the sink. 0 or the error.
int RunCoder(const Source& source, ByteCoder& coder, const Sink& sink)
{
    constexpr std::size_t blockSize = std::size_t{1} << 18;
    std::string output;
    if (!source.isFile) {
        const bool sound = coder.Feed(ToUtf8(source.text), output) && coder.Finish(output);
        return !sound ? malformed : sink(output) ? 0 : SystemError();
    }
    InputFile file;
    if (!file.Open(source.name))
        return SystemError();
    std::vector<char> block(blockSize);
    for (std::size_t count = 1; count > 0;) {
        ThrowIfBroken();
        if (!file.Read(block.data(), block.size(), count))
            return SystemError();
        output.clear();
        const bool sound = count > 0 ? coder.Feed({block.data(), count}, output) : coder.Finish(output);
        if (!sound)
            return malformed;
        if (!sink(output))
            return SystemError();
    }
    return 0;
}

// The answer: a text in place of what `run` makes, or the size of the file that it fills.
int Deliver(FunctionCall& call, const Source& source, const std::function<int(const Sink&)>& run)
{
    if (source.target.empty()) {
        std::string bytes;
        bool fits = true;
        const int code = run([&](std::string_view more) {
            fits = bytes.size() + more.size() <= longestExpansion;
            bytes.append(fits ? more : std::string_view());
            return fits;
        });
        if (code != 0)
            return fits ? code : answer::tooLong;
        return answer::ForeignText(call, FromUtf8(bytes));
    }
    ReplacedFile file;
    std::int64_t size = 0;
    if (!file.Create(source.target))
        return SystemError();
    const int code = run([&](std::string_view bytes) {
        size += static_cast<std::int64_t>(bytes.size());
        return file.Write(bytes);
    });
    if (code != 0)
        return code;
    return file.Commit() ? answer::Number(call, size) : SystemError();
}

bool IsForFiles(ByteCoding coding) { return coding == ByteCoding::Uu || coding == ByteCoding::Yenc; }

int AnswerEncoded(FunctionCall& call, ByteCoding coding)
{
    Source source;
    if (const int code = ReadSource(call, IsForFiles(coding), source))
        return code;
    EncodingFrame frame;
    frame.lines = !source.target.empty();
    if (source.isFile) {
        InputFile file;
        if (!file.Open(source.name))
            return SystemError();
        frame.size = file.Size();
        frame.name = ToUtf8(FileNamePart(source.name));
    }
    const auto coder = MakeEncoder(coding, frame);
    return Deliver(call, source, [&](const Sink& sink) { return RunCoder(source, *coder, sink); });
}

int AnswerDecoded(FunctionCall& call, ByteCoding coding)
{
    Source source;
    if (const int code = ReadSource(call, IsForFiles(coding), source))
        return code;
    const auto coder = MakeDecoder(coding);
    return Deliver(call, source, [&](const Sink& sink) { return RunCoder(source, *coder, sink); });
}

std::string_view BytesOf(View text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

// A text file, in whatever encoding it is, as UTF-8 or as UTF-16 with its mark.
int ConvertTextFile(const Source& source, bool toUtf8, const Sink& sink)
{
    TextReader reader;
    if (!reader.Open(source.name) || (!toUtf8 && !sink("\xFF\xFE")))
        return SystemError();
    for (CString piece(u"\n"); !piece.empty();) {
        ThrowIfBroken();
        if (!reader.Read(piece))
            return SystemError();
        if (!(toUtf8 ? sink(ToUtf8(piece)) : sink(BytesOf(piece))))
            return SystemError();
    }
    return 0;
}

// A file is wanted with a target, a text without.
int AnswerConverted(FunctionCall& call, bool toUtf8)
{
    Source source;
    if (const int code = ReadSource(call, false, source))
        return code;
    if (source.isFile && source.target.empty())
        return answer::missingArgument;
    if (source.isFile)
        return Deliver(call, source, [&](const Sink& sink) { return ConvertTextFile(source, toUtf8, sink); });
    std::string bytes;
    if (toUtf8) {
        CString text;
        for (const char unit : ToUtf8(source.text))
            text.Append(static_cast<char16_t>(static_cast<unsigned char>(unit)));
        return answer::ForeignText(call, text);
    }
    for (const char16_t unit : source.text) {
        if (unit > 0xFF)
            return malformed;
        bytes += static_cast<char>(unit);
    }
    return IsValidUtf8(bytes) ? answer::ForeignText(call, FromUtf8(bytes)) : malformed;
}

} // namespace

int B64encode_Function(FunctionCall& call) { return AnswerEncoded(call, ByteCoding::Base64); }
int B64decode_Function(FunctionCall& call) { return AnswerDecoded(call, ByteCoding::Base64); }
int Hexencode_Function(FunctionCall& call) { return AnswerEncoded(call, ByteCoding::Hex); }
int Hexdecode_Function(FunctionCall& call) { return AnswerDecoded(call, ByteCoding::Hex); }
int Qpencode_Function(FunctionCall& call) { return AnswerEncoded(call, ByteCoding::QuotedPrintable); }
int Qpdecode_Function(FunctionCall& call) { return AnswerDecoded(call, ByteCoding::QuotedPrintable); }

// @uuencode, @uudecode, @yencode, @ydecode[file,target]
int Uuencode_Function(FunctionCall& call) { return AnswerEncoded(call, ByteCoding::Uu); }
int Uudecode_Function(FunctionCall& call) { return AnswerDecoded(call, ByteCoding::Uu); }
int Yencode_Function(FunctionCall& call) { return AnswerEncoded(call, ByteCoding::Yenc); }
int Ydecode_Function(FunctionCall& call) { return AnswerDecoded(call, ByteCoding::Yenc); }

// @utf8encode[text]: each byte of its UTF-8 as a character of that code; @utf8decode the other way round.
// [file,target,file] makes a UTF-8 or a UTF-16 file of a text file.
int Utf8encode_Function(FunctionCall& call) { return AnswerConverted(call, true); }
int Utf8decode_Function(FunctionCall& call) { return AnswerConverted(call, false); }
