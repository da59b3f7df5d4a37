"""The contents that a disk may have after a loss of power while a command ran.

A command's file-system calls are replayed on a model of a disk that is sure to keep only what was
synced. Any other change may be missing, in any order: an entry of a directory as well as data of a
file. A write may have happened in part.
"""
import itertools
import random
import re
from collections import namedtuple
from pathlib import Path

# The calls that the model replays. The caller compares the replayed disk with the real one.
NAMING = ("openat", "rename", "unlink", "unlinkat", "rmdir", "mkdir")
WRITING = ("write", "pwrite64", "fsync", "fdatasync", "syncfs")
CALL = re.compile(r"(\w+)\((.*)\) += (\d+)")
SECTOR = 512  # bytes that a disk writes at once

# A change of a disk. A sync of one of its owners, files and directories, makes it last; apply is a
# function of the disk; parts are the changes that may happen in its place.
Change = namedtuple("Change", "owners apply parts")


def write(file, offset, data):
    def apply(disk):
        old = disk.files[file]
        disk.files[file] = old[:offset].ljust(offset, b"\0") + data + old[offset + len(data):]
    half = len(data) // SECTOR // 2 * SECTOR
    return Change({file}, apply, [write(file, offset, data[:half]),
                                  write(file, offset + half, data[half:])] if half else [])


def enter(names):
    """Gives each name, a pair (directory, name), to a file; a name that gets None is removed."""
    def apply(disk):
        merged = {**disk.names, **names}
        disk.names = {key: file for key, file in merged.items() if file is not None}
    return Change({directory for directory, _ in names}, apply, [])


class Disk:
    """Files and directories by number: a file's data, None for a directory. The root is 0."""

    def __init__(self, names=(), files=()):
        self.names, self.files = dict(names), dict(files)

    def copy(self):
        return Disk(self.names, self.files)

    def add(self, path):
        """Reads the file or directory at the path, and returns its number."""
        number = len(self.files)
        self.files[number] = None if path.is_dir() else path.read_bytes()
        for child in sorted(path.iterdir()) if path.is_dir() else ():
            self.names[number, child.name] = self.add(child)
        return number

    def put(self, path, number=0):
        """Writes the file or directory of that number to the path."""
        if self.files[number] is not None:
            path.write_bytes(self.files[number])
            return path.chmod(0o755)
        path.mkdir(mode=0o755, exist_ok=True)  # the lab refuses directories that others can write
        for (directory, name), child in self.names.items():
            if directory == number:
                self.put(path / name, child)

    def find(self, path):
        """Returns the name, a pair (directory, name), and the number of its file or None."""
        directory = 0
        for part in path.parts[:-1]:
            directory = self.names[directory, part]
        key = directory, path.name
        return key, self.names.get(key) if path.parts else 0

    def look(self):
        """Returns a hash of all files that have a name."""
        return hash(frozenset((key, file, self.files[file]) for key, file in self.names.items()))


class Recording:
    """A command's changes below the directory `root`, read from `trace`, the output of strace.
    `before` is the disk at the start, `now` at the end. `events` holds changes, numbers of synced
    files and directories, and "reported" where the command printed its result."""

    def __init__(self, root, before, trace):
        self.root, self.before, self.now, self.events = root, before, before.copy(), []
        self.open = {}  # by descriptor: the file's number and the offset
        for call in filter(None, map(CALL.match, trace)):
            if call[1] in NAMING:
                self.name(call[1], call[2], int(call[3]))
            elif call[1] in WRITING:
                self.write(call[1], call[2], int(call[3]))

    def write(self, call, arguments, value):
        number = int(arguments.split("<")[0])
        if number == 1:
            self.events.append("reported")
        if number not in self.open:
            return None
        file, offset = self.open[number]
        if call in ("fsync", "fdatasync"):
            return self.events.append(file)
        if call == "syncfs":
            return self.events.extend(self.now.files)
        data = unhex(arguments.split('"')[1]).encode("latin-1")[:value]
        if call == "pwrite64":
            return self.change(write(file, int(arguments.split(", ")[-1]), data))
        self.open[number] = file, offset + value
        return self.change(write(file, offset, data))

    def name(self, call, arguments, value):
        """Records a call that changes names; skips those outside of the root."""
        directories = re.findall(r"<([^>]*)>", arguments) or ["/", "/"]
        names = re.findall(r'"([^"]*)"', arguments)
        paths = [Path(unhex(directory), unhex(name)) for directory, name in zip(directories, names)]
        if call == "openat":
            self.open.pop(value, None)
        if not all(path.is_relative_to(self.root) for path in paths):
            return
        (key, file), *target = [self.now.find(path.relative_to(self.root)) for path in paths]
        if call == "openat":
            if file is None:
                file = self.create(key, b"")
            self.open[value] = file, 0
        elif call == "mkdir":
            self.create(key, None)
        elif target:
            self.change(enter({target[0][0]: file, key: None}))
        else:
            self.change(enter({key: None}))

    def create(self, key, data):
        file = len(self.now.files)
        self.before.files[file] = self.now.files[file] = data
        self.change(enter({key: file}))
        return file

    def change(self, change):
        change.apply(self.now)
        self.events.append(change)

    def crashes(self):
        """Yields every disk that may be left, once, and whether a result was printed."""
        choices, kept, seen = random.Random(1), self.before.copy(), set()
        pending, reported = [], False
        for event in [*self.events, "reported"]:
            if isinstance(event, Change):
                pending.append(event)
                continue
            for left in survivors(pending, choices):
                disk = kept.copy()
                for change in left:
                    change.apply(disk)
                if (disk.look(), reported) not in seen:
                    seen.add((disk.look(), reported))
                    yield disk, reported
            reported = reported or event == "reported"
            for change in [change for change in pending if event in change.owners]:
                change.apply(kept)
                pending.remove(change)


def survivors(pending, choices):
    """Yields the unsynced changes that may survive: all subsets of a few; of many, those that lack
    one, have only one, or end early, and some at random; and each change in part."""
    places = range(len(pending))
    picks = [[place < end for place in places] for end in range(len(pending) + 1)]
    picks += [[(place == one) == held for place in places]
              for one in places for held in (False, True)]
    picks += [[choices.random() < 0.5 for _ in places] for _ in range(16)]
    if len(pending) <= 6:
        picks = itertools.product((False, True), repeat=len(pending))
    for pick in picks:
        yield list(itertools.compress(pending, pick))
    for place, change in enumerate(pending):
        for part in change.parts:
            yield [*pending[:place], part]
            yield [*pending[:place], part, *pending[place + 1:]]


def unhex(text):
    return re.sub(r"\\x(..)", lambda digits: chr(int(digits[1], 16)), text)
