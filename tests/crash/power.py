"""What a disk may hold after a loss of power while a command ran.

strace records the command's file-system calls, and they are replayed on a model of a disk that
keeps for sure only what was synced. Of the rest anything may be missing, in any order, a folder's
entries no less than a file's data, and a write may have happened in part.
"""
import itertools
import os
import random
import re
import subprocess
import tempfile
from collections import namedtuple
from pathlib import Path

NAMING = ("openat", "rename", "renameat", "renameat2", "link", "linkat", "unlink", "unlinkat",
          "rmdir", "mkdir", "mkdirat")
WRITING = ("write", "writev", "pwrite64", "sendfile", "ftruncate", "fsync", "fdatasync",
           "syncfs")
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


def resize(file, size):
    def apply(disk):
        disk.files[file] = disk.files[file][:size].ljust(size, b"\0")
    return Change({file}, apply, [])


def enter(names):
    """Gives names, which are (folder, name), to files; or takes those away that get None."""
    def apply(disk):
        merged = {**disk.names, **names}
        disk.names = {key: file for key, file in merged.items() if file is not None}
    return Change({folder for folder, _ in names}, apply, [])


class Disk:
    """Files and folders by number: the data of a file, None of a folder. The root is 0."""

    def __init__(self, names, files):
        self.names, self.files = names, files

    def copy(self):
        return Disk(dict(self.names), dict(self.files))

    def add(self, path, number, numbers):
        """Takes over what stands at the path."""
        self.files[number] = None if path.is_dir() else path.read_bytes()
        for child in sorted(path.iterdir()) if path.is_dir() else ():
            self.names[number, child.name] = found = next(numbers)
            self.add(child, found, numbers)

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
        return (folder, path.name), self.names.get((folder, path.name))

    def look(self):
        """What tells this disk from others; what has no name does not count."""
        return hash(frozenset((key, file, self.files[file]) for key, file in self.names.items()))


class Recording:
    """A command's changes of what is below a folder. `events` holds changes, numbers of what was
    synced, and "told" where the command printed its result."""

    def __init__(self, root, command):
        self.root, self.numbers, self.events = root, itertools.count(1), []
        self.before = Disk({}, {})
        self.before.add(root, 0, self.numbers)
        self.now = self.before.copy()
        self.open = {}  # by descriptor: the file's number and the place in it
        with tempfile.NamedTemporaryFile("r") as trace, tempfile.TemporaryDirectory() as replayed:
            self.result = subprocess.run(
                ["strace", "-y", "-xx", "--string-limit=10000000", "--output=" + trace.name,
                 "--trace=" + ",".join(NAMING + WRITING), *command],
                capture_output=True, text=True, check=False)
            for call in filter(None, map(CALL.match, trace)):
                self.take(call[1], call[2], int(call[3]))
            self.now.put(Path(replayed))
            # What the programs write that a command starts is not recorded.
            subprocess.run(["diff", "-r", "--exclude=var", replayed, root], check=True)

    def take(self, call, arguments, value):
        texts = [unhex(text) for text in re.findall(r'"([^"]*)"', arguments)]
        places = [unhex(path) for path in re.findall(r"<([^>]*)>", arguments)]
        if call in NAMING:
            paths = map(os.path.join, places or ["/", "/"], texts)
            return self.name(call, arguments, value, [Path(path) for path in paths])
        number, last = int(arguments.split("<")[0]), arguments.split(", ")[-1]
        if number == 1:
            self.events.append("told")
        if number not in self.open:
            return None
        file, place = self.open[number]
        if call in ("fsync", "fdatasync"):
            return self.events.append(file)
        if call == "syncfs":
            return self.events.extend(self.now.files)
        if call == "ftruncate":
            return self.change(resize(file, int(last)))
        if call == "pwrite64":
            return self.change(write(file, int(last), texts[0].encode("latin-1")[:value]))
        data = "".join(texts).encode("latin-1")
        if call == "sendfile":
            data = Path(places[1]).read_bytes()
        self.open[number] = file, place + value
        return self.change(write(file, place, data[:value]))

    def name(self, call, arguments, value, paths):
        """A call that is about names; those of other places are none of ours."""
        if call == "openat":
            self.open.pop(value, None)
        if not all(path.is_relative_to(self.root) for path in paths):
            return
        (key, file), *target = [self.now.find(path.relative_to(self.root)) for path in paths]
        if call == "openat" and paths == [self.root]:
            self.open[value] = 0, 0
        elif call == "openat":
            if file is None:
                file = self.create(key, b"")
            elif "O_TRUNC" in arguments:
                self.change(resize(file, 0))
            size = len(self.now.files[file] or "")
            self.open[value] = file, size if "O_APPEND" in arguments else 0
        elif call.startswith("mkdir"):
            self.create(key, None)
        elif target:
            self.change(enter({target[0][0]: file} | ({} if "link" in call else {key: None})))
        else:
            self.change(enter({key: None}))

    def create(self, key, data):
        file = next(self.numbers)
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
