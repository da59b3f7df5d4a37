"""Runs autocli on temporary labs, and reads their stores with SQLite instead of autocli."""
import contextlib
import dataclasses
import json
import os
import re
import shutil
import sqlite3
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
AUTOCLI = str(Path(os.environ.get("AUTOCLI", ROOT / "build/bin/autocli")).resolve())
UUID = re.compile(r"[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}")
TOO_LONG = 120  # seconds; a command that takes longer hangs

# The lab's invariants: each query finds the rows that break one.
RULES = {
    "the store is whole": "SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok'",
    "what is referred to is there": "SELECT * FROM pragma_foreign_key_check",
    "a cluster has one default datastore": """
        SELECT uuid FROM clusters WHERE 1 <>
          (SELECT count(*) FROM datastores WHERE cluster = clusters.uuid AND is_default)""",
    "a cluster has a host":
        "SELECT uuid FROM clusters WHERE uuid NOT IN (SELECT cluster FROM members)",
}


class Fault(Exception):
    """The lab broke a promise."""


def require(holds, *what):
    if not holds:
        raise Fault("\n  ".join(map(str, what)))


@dataclasses.dataclass
class Result:
    """A command's words, exit status and output."""

    words: str
    status: int
    out: str
    err: str

    def require(self, holds):
        require(holds, f"autocli {self.words}", f"status {self.status}", self.out, self.err)
        return self

    def require_done(self):
        return self.require((self.status, self.out, self.err) == (0, "true\n", ""))

    def require_unusable(self, reason):
        """The lab could not be used, and one error line has the reason, a pattern."""
        error = re.fullmatch(r"autocli: ([^\n]*)\n", self.err)
        return self.require(
            self.status == 3 and not self.out and error and re.search(reason, error[1]))


class Lab:
    def __init__(self, directory):
        self.directory = Path(directory)

    def run(self, words, prefix=()):
        try:
            done = subprocess.run([*prefix, AUTOCLI, "--lab", self.directory, *words.split()],
                                  stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                  timeout=TOO_LONG, check=False)
        except subprocess.TimeoutExpired:
            raise Fault(f"autocli {words}: hung for {TOO_LONG} s") from None
        return Result(words, done.returncode, done.stdout, done.stderr)

    def do(self, words):
        """Runs a command that has to succeed with the result true."""
        return self.run(words).require_done()

    def rows(self, words):
        """Runs a command that has to succeed with a list."""
        result = self.run("--formatter json " + words)
        return json.loads(result.require(result.status == 0 and not result.err).out)

    def query(self, sql):
        with contextlib.closing(sqlite3.connect(self.directory / "lab.db")) as connection:
            return connection.execute(sql).fetchall()

    def dump(self):
        """Returns every row of every table, and every file of every host but logs and drafts."""
        tables = self.query("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name")
        rows = [(table, *row) for table, in tables for row in self.query(f"SELECT * FROM {table}")]
        for name, uuid in self.query("SELECT name, uuid FROM hosts"):
            draft = self.directory / "hosts" / f".{uuid}"  # not renamed yet
            root = draft if draft.exists() else self.directory / "hosts" / name
            rows += [(name, str(path.relative_to(root)), path.read_text(errors="replace"))
                     for path in root.rglob("*")
                     if path.is_file() and not re.search(r"\.log$|\.new-", path.name)]
        return rows

    def check(self):
        """Checks that the store is sound and the lab's rules hold."""
        for rule, sql in RULES.items():
            found = self.query(sql)
            require(not found, f"{self.directory}: broken: {rule}", *found)

    def copy(self, directory):
        """Copies the lab to a new directory."""
        shutil.copytree(self.directory, directory)
        return Lab(directory)

    def cluster(self):
        return self.query("SELECT uuid FROM clusters")[0][0]


def anonymous(rows, known=frozenset()):
    """Returns the rows without what differs between two runs of a command: new UUIDs, and times."""
    def mask(value):
        if isinstance(value, int) and value > 10**12 and value not in known:
            return "time"
        return UUID.sub(lambda uuid: uuid[0] if uuid[0] in known else "new", str(value))
    return sorted(tuple(map(mask, row)) for row in rows)
