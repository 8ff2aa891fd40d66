#include "commands/alias.h"

#include "commands/list_commands.h"
#include "engine/results.h"

const CommandHelp aliasHelp = {
    u"Shows or defines names for command texts.",
    u"ALIAS [/G | /L] [/P] [/S] [name]\n"
    u"ALIAS [/G | /L] [/O] name[=]text\n"
    u"ALIAS /R [/G | /L] [/O] [file ...]",
    u"/G  the global list, which all shells of this user share\n"
    u"/L  the local list of this shell\n"
    u"/O  leave aliases alone that exist already\n"
    u"/P  wait for a key after each screen\n"
    u"/R  read definitions from files or standard input. Lines that begin with : or ; are comments, and a "
    u"line that ends with the escape character goes on in the next one\n"
    u"/S  show sorted by name\n"
    u"Definitions go to the local list when there is one, else to the global one. A * in the name marks how "
    u"far it may be shortened. In the text %1 to %9 are the command's arguments, %n$ argument n and all "
    u"that follow, %$ all, %# their number. Back-quotes around the text keep variables and separators in it "
    u"for the time when the alias runs, and the blanks at its end.\n"
    u"@key=text binds a key, Ctrl-F5 for example: the text comes into the line at the cursor. With @@key it "
    u"runs at once and unseen. CD and its kin take an alias \"name:\" for the directory that is its text: "
    u"name:sub\\dir. A prompt that is just the name of an alias shows what its text says.",
    u"alias d dir /w\n"
    u"alias where*is=`which %$`\n"
    u"alias up=`cd .. & dir`\n"
    u"alias @ctrl-f5=dir /w\n"
    u"alias @alt-e=`echo `\n"
    u"alias docs:=c:\\my documents\n"
    u"alias d*\n"
    u"alias > aliases.txt & alias /r aliases.txt",
};

const CommandHelp unaliasHelp = {
    u"Removes aliases.",
    u"UNALIAS [/G | /L] [/Q] name ...\n"
    u"UNALIAS /R [/G | /L] [/Q] [file ...]",
    u"/G  from the global list only\n"
    u"/L  from the local list only\n"
    u"/Q  no message when nothing was there to remove\n"
    u"/R  read the names from files or standard input\n"
    u"Names may hold the wildcards *, ? and [...]; * alone removes every alias.",
    u"unalias d up\n"
    u"unalias *",
};

namespace {

constexpr ListCommand aliases = {ListKind::Aliases, errors::noAliasList, errors::notAnAlias};

} // namespace

int Alias_Command(CString& arguments) { return DefineInList(arguments, aliases); }
int Unalias_Command(CString& arguments) { return RemoveFromList(arguments, aliases); }
