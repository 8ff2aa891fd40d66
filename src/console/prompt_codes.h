// The metacharacters of PROMPT: "$" and a character that stands for something. Pure; what the codes show
// comes from PromptFacts, so that tests can make up a world.
//
//   $A &   $B |   $C (   $F )   $G >   $L <   $Q =   $S blank   $$ $   $_ line break   $E escape character
//   $D date            $I date as 2026-01-31    $T time                 $K time without seconds
//   $P directory       $W directory, shortened  $Xd: directory of a drive
//   $N drive letter    $M remote name of the drive and a blank, nothing for a local one
//   $R error level     $U user name             $V version              $Z nested shells
//   $+ a plus sign for each directory that PUSHD keeps
//   $H takes back the character before it
//
// Letters mind no case. A code that is not listed shows nothing.
#pragma once

#include "text/cstring.h"

class PromptFacts {
public:
    virtual ~PromptFacts() = default;
    virtual CString Date() = 0;
    virtual CString IsoDate() = 0;
    virtual CString Time() = 0;
    virtual CString ShortTime() = 0;
    virtual CString Directory() = 0;
    virtual CString DirectoryOf(char16_t drive) = 0;
    virtual CString RemoteName() = 0;
    virtual CString ErrorLevel() = 0;
    virtual CString UserName() = 0;
    virtual CString Version() = 0;
    virtual CString Nesting() = 0;
    virtual std::size_t StackDepth() = 0;
};

// The pattern with its codes replaced. With `doublePercents` every "%" in a replacement comes out twice, so
// that a directory's "%" survives the expansion of variables that is to follow.
CString ExpandPromptCodes(std::u16string_view pattern, PromptFacts& facts, bool doublePercents);

// The path as its root, "..." and its last name; one of at most two names stays as it is.
CString ShortenPath(std::u16string_view path);
