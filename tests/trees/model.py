"""What the file commands do to a tree of files, told as plainly as possible."""

import re

HIDDEN, READ_ONLY, PLAIN = "hidden", "read-only", ""


class Tree:
    """Files by name ("folder/name") with contents, time and mark; folders; descriptions by name."""

    def __init__(self):
        self.files, self.folders, self.notes = {}, {""}, {}

    def __eq__(self, other):
        return self.__dict__ == other.__dict__

    def add_folder(self, name):
        while name not in self.folders:
            self.folders.add(name)
            name = folder_of(name)

    def is_empty(self, folder):
        return not any(is_below(name, folder) for name in [*self.files, *self.folders])

    def prune(self, may_go):
        """Folders that are empty go, deepest first."""
        for folder in sorted(self.folders, key=len, reverse=True):
            if may_go(folder) and self.is_empty(folder):
                self.folders.discard(folder)

    def drop(self, name):
        del self.files[name]
        self.notes.pop(name, None)


def folder_of(name):
    return name.rpartition("/")[0]


def is_below(name, folder):
    return name != folder and (not folder or name.startswith(folder + "/"))


def matches(pattern, name):
    if pattern == "*.*":
        return True
    expression = "".join({"*": ".*", "?": "."}.get(unit, re.escape(unit)) for unit in pattern)
    return re.fullmatch(expression, name.rpartition("/")[2], re.IGNORECASE) is not None


def everything(_name, _file):
    return True


def is_chosen(tree, name, pattern, switches, picks):
    return (not folder_of(name) or "s" in switches) and matches(pattern, name) and picks(name, tree.files[name])


def is_needed(time, there, switches):
    if there is None:
        return "c" not in switches
    return "o" not in switches and (not set("uc") & set(switches) or time > there[1])


def is_protected(there, switches):
    if there is None or "z" in switches:
        return False
    return there[2] == READ_ONLY or (there[2] == HIDDEN and "h" not in switches)


def transfer(source, target, pattern, switches, moves=False, picks=everything):
    left = set()
    for name in list(source.files):
        contents, time, mark = source.files[name]
        there = target.files.get(name)
        if not is_chosen(source, name, pattern, switches, picks) or (mark == HIDDEN and "h" not in switches):
            continue
        if name in target.folders or any(is_below(name, file) for file in target.files):
            continue
        if not is_needed(time, there, switches) or is_protected(there, switches):
            continue
        target.add_folder(folder_of(name))
        target.files[name] = (contents, time, PLAIN if mark == READ_ONLY and not moves else mark)
        if name in source.notes:
            target.notes[name] = source.notes[name]
        if moves:
            source.drop(name)
            left.add(folder_of(name))
    if moves and "s" in switches:
        source.prune(lambda folder: folder and any(folder == one or is_below(one, folder) for one in left))


def delete(tree, pattern, switches, picks):
    for name in list(tree.files):
        mark = tree.files[name][2]
        kept = mark == HIDDEN or (mark == READ_ONLY and "f" not in switches)
        if is_chosen(tree, name, pattern, switches, picks) and ("z" in switches or not kept):
            tree.drop(name)


def transfer_folder(source, target, switches, moves=False):
    blocked = {folder for folder in source.folders if any(folder == file or is_below(folder, file) for file in target.files)}
    for folder in source.folders - blocked:
        target.add_folder(folder)
    transfer(source, target, "*", switches + "sh", moves)
    if moves:
        source.prune(lambda folder: folder not in blocked)


def remove_extras(source, target, switches):
    conflicts = conflicts_of(source, target)
    for name in set(target.files) - set(source.files):
        if not is_stuck(name, conflicts) and (target.files[name][2] != READ_ONLY or "z" in switches):
            target.drop(name)
    target.prune(lambda folder: folder not in source.folders and not is_stuck(folder, conflicts))


def conflicts_of(first, second):
    return [name for name in first.files if name in second.folders] + [
        name for name in second.files if name in first.folders]


def is_stuck(name, conflicts):
    return any(name == one or is_below(name, one) for one in conflicts)


def sync(first, second, switches):
    conflicts = conflicts_of(first, second)
    both = "2" in switches

    def put(name, source, target):
        if "z" in switches or target.files.get(name, (0, 0, PLAIN))[2] != READ_ONLY:
            target.files[name] = source.files[name]
            if name in source.notes:
                target.notes[name] = source.notes[name]

    for source, target in [(first, second), (second, first)][: 2 if both else 1]:
        for folder in list(source.folders):
            if not is_stuck(folder, conflicts):
                target.add_folder(folder)
    for name in {*first.files, *second.files}:
        if is_stuck(name, conflicts):
            continue
        ours, theirs = first.files.get(name), second.files.get(name)
        if theirs is None or (ours and ours[1] > theirs[1]):
            put(name, first, second)
        elif ours is None or ours[1] < theirs[1]:
            if both:
                put(name, second, first)
            elif ours and "f" in switches:
                put(name, first, second)
    if "w" in switches and not both:
        remove_extras(first, second, switches)


def rename(tree, pattern, extension, picks):
    for name in sorted(tree.files):
        if tree.files[name][2] == HIDDEN or not is_chosen(tree, name, pattern, "", picks):
            continue
        stem = name.rpartition(".")[0] if "." in name else name
        new = f"{stem}.{extension}"
        if new not in tree.files and new not in tree.folders:
            tree.files[new] = tree.files.pop(name)
            tree.notes.pop(new, None)
            if name in tree.notes:
                tree.notes[new] = tree.notes.pop(name)


def touch(tree, pattern, switches, time, picks):
    for name, (contents, _, mark) in tree.files.items():
        kept = mark == HIDDEN or (mark == READ_ONLY and "f" not in switches)
        if not kept and is_chosen(tree, name, pattern, switches, picks):
            tree.files[name] = (contents, time, mark)


def mark(tree, pattern, switches, new, picks):
    for name, (contents, time, _) in tree.files.items():
        if is_chosen(tree, name, pattern, switches, picks):
            tree.files[name] = (contents, time, new)
