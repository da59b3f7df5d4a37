"""What a disk may hold after a loss of power while a command ran.

A command's file-system calls are replayed on a model of a disk that keeps for sure only what was
synced. Of the rest anything may be missing, in any order, a folder's entries no less than a file's
data, and a write may have happened in part.
"""
import itertools
import random
import re
from collections import namedtuple
from pathlib import Path

# What autocli calls. That it is all of it shows in that the replay gives what the command left.
NAMING = ("openat", "rename", "unlink", "unlinkat", "rmdir", "mkdir")
WRITING = ("write", "pwrite64", "fsync", "fdatasync", "syncfs")
CALL = re.compile(r"(\w+)\((.*)\) += (\d+)")
SECTOR = 512  # bytes that a disk writes at once

# A change of a disk: the files and folders of which one must be synced to make it last, a function
# of the disk, and the changes that it may be instead if it happens in part.
Change = namedtuple("Change", "owners apply parts")


def write(file, offset, data):
    def apply(disk):
        old = disk.files[file]
        disk.files[file] = old[:offset].ljust(offset, b"\0") + data + old[offset + len(data):]
    half = len(data) // SECTOR // 2 * SECTOR
    return Change({file}, apply, [write(file, offset, data[:half]),
                                  write(file, offset + half, data[half:])] if half else [])


def enter(names):
    """Gives names, which are (folder, name), to files; or takes those away that get None."""
    def apply(disk):
        merged = {**disk.names, **names}
        disk.names = {key: file for key, file in merged.items() if file is not None}
    return Change({folder for folder, _ in names}, apply, [])


class Disk:
    """Files and folders by number: the data of a file, None of a folder. The root is 0."""

    def __init__(self, names=(), files=()):
        self.names, self.files = dict(names), dict(files)

    def copy(self):
        return Disk(self.names, self.files)

    def add(self, path):
        """Takes over what stands at the path, and returns its number."""
        number = len(self.files)
        self.files[number] = None if path.is_dir() else path.read_bytes()
        for child in sorted(path.iterdir()) if path.is_dir() else ():
            self.names[number, child.name] = self.add(child)
        return number

    def put(self, path, number=0):
        """Makes of the path what stands here."""
        if self.files[number] is not None:
            path.write_bytes(self.files[number])
            return path.chmod(0o755)
        path.mkdir(exist_ok=True)
        for (folder, name), child in self.names.items():
            if folder == number:
                self.put(path / name, child)

    def find(self, path):
        """The name as (folder, name), and what has it or None."""
        folder = 0
        for part in path.parts[:-1]:
            folder = self.names[folder, part]
        key = folder, path.name
        return key, self.names.get(key) if path.parts else 0

    def look(self):
        """What tells this disk from others; what has no name does not count."""
        return hash(frozenset((key, file, self.files[file]) for key, file in self.names.items()))


class Recording:
    """A command's changes of what is below a folder: `before`, a disk that holds it, and `trace`,
    what strace says of the command. `events` holds changes, numbers of what was synced, and "told"
    where the command printed its result; `now` is the disk in the end."""

    def __init__(self, root, before, trace):
        self.root, self.before, self.now, self.events = root, before, before.copy(), []
        self.open = {}  # by descriptor: the file's number and the place in it
        for call in filter(None, map(CALL.match, trace)):
            if call[1] in NAMING:
                self.name(call[1], call[2], int(call[3]))
            elif call[1] in WRITING:
                self.write(call[1], call[2], int(call[3]))

    def write(self, call, arguments, value):
        number = int(arguments.split("<")[0])
        if number == 1:
            self.events.append("told")
        if number not in self.open:
            return None
        file, place = self.open[number]
        if call in ("fsync", "fdatasync"):
            return self.events.append(file)
        if call == "syncfs":
            return self.events.extend(self.now.files)
        data = unhex(arguments.split('"')[1]).encode("latin-1")[:value]
        if call == "pwrite64":
            return self.change(write(file, int(arguments.split(", ")[-1]), data))
        self.open[number] = file, place + value
        return self.change(write(file, place, data))

    def name(self, call, arguments, value):
        """A call that is about names; those of other places are none of ours."""
        folders = re.findall(r"<([^>]*)>", arguments) or ["/", "/"]
        names = re.findall(r'"([^"]*)"', arguments)
        paths = [Path(unhex(folder), unhex(name)) for folder, name in zip(folders, names)]
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
        """Every disk that a loss of power may leave, once: (disk, whether a result was told)."""
        choices, kept, pending, told, seen = random.Random(1), self.before.copy(), [], False, set()
        for event in [*self.events, "told"]:
            if isinstance(event, Change):
                pending.append(event)
                continue
            for left in survivors(pending, choices):
                disk = kept.copy()
                for change in left:
                    change.apply(disk)
                if (disk.look(), told) not in seen:
                    seen.add((disk.look(), told))
                    yield disk, told
            told = told or event == "told"
            for change in [change for change in pending if event in change.owners]:
                change.apply(kept)
                pending.remove(change)


def survivors(pending, choices):
    """What may be left of changes that were not synced: all subsets of a few, of many those that
    lack one, hold one, or end early, and some by chance; and what each may be in part."""
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
