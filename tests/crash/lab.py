"""Runs autocli on labs of its own, and looks into their stores with SQLite, past autocli."""
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
TOO_LONG = 120  # seconds; whoever takes longer hangs

# What must hold whatever happened: each query finds what breaks the rule.
RULES = {
    "the store is whole": "SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok'",
    "what is referred to is there": "SELECT * FROM pragma_foreign_key_check",
    "a cluster has one default datastore": """
        SELECT uuid FROM clusters WHERE 1 <>
          (SELECT count(*) FROM datastores WHERE cluster = clusters.uuid AND is_default)""",
    "a cluster has a host":
        "SELECT uuid FROM clusters WHERE uuid NOT IN (SELECT cluster FROM members)",
    "no two members have one place":
        "SELECT place FROM members GROUP BY cluster, place HAVING count(*) > 1",
    "a host has its interfaces and its disks": """
        SELECT name FROM hosts WHERE 2 > (SELECT count(*) FROM interfaces WHERE host = hosts.id)
        OR 6 > (SELECT count(*) FROM disks WHERE host = hosts.id)""",
    "a claimed disk is behind a flash device of its host": """
        SELECT device FROM disks AS disk WHERE uuid IS NOT NULL AND NOT EXISTS
          (SELECT 1 FROM disks AS ssd WHERE ssd.uuid = disk.disk_group AND ssd.disk_group = ssd.uuid
           AND ssd.device = disk.group_name AND ssd.host = disk.host AND ssd.flash)""",
    "a disk group has a capacity disk": """
        SELECT device FROM disks AS ssd WHERE uuid = disk_group AND NOT EXISTS
          (SELECT 1 FROM disks WHERE disk_group = ssd.uuid AND uuid <> ssd.uuid)""",
    "an empty disk is blank": """
        SELECT device FROM disks
        WHERE uuid IS NULL AND (disk_group || group_name <> '' OR mounted)""",
}


class Fault(Exception):
    """The lab broke a promise."""


def require(holds, *what):
    if not holds:
        raise Fault("\n  ".join(map(str, what)))


@dataclasses.dataclass
class Result:
    """What a command left."""

    words: str
    status: int
    out: str
    err: str

    done = property(lambda self: self.out == "true\n")

    def require(self, holds):
        require(holds, f"autocli {self.words}", f"status {self.status}", self.out, self.err)
        return self

    def require_done(self):
        return self.require(self.done and self.status == 0 and not self.err)

    def require_unusable(self, reason):
        """The lab could not be used, and the command said why in one line."""
        said = re.fullmatch(r"autocli: ([^\n]*)\n", self.err)
        return self.require(
            self.status == 3 and not self.out and said and re.search(reason, said[1]))


class Lab:
    def __init__(self, folder):
        self.folder = Path(folder)
        self.store = self.folder / "lab.db"

    def start(self, words, prefix=(), **options):
        process = subprocess.Popen(
            [*prefix, AUTOCLI, "--lab", self.folder, *words.split()], stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options)
        process.words = words
        return process

    @staticmethod
    def finish(process):
        try:
            out, err = process.communicate(timeout=TOO_LONG)
        except subprocess.TimeoutExpired:
            process.kill()
            raise Fault(f"autocli {process.words}: hung for {TOO_LONG} s") from None
        return Result(process.words, process.returncode, out, err)

    def run(self, words, **options):
        return self.finish(self.start(words, **options))

    def do(self, words):
        """Runs a command that has to succeed with the result true."""
        return self.run(words).require_done()

    def rows(self, words):
        """Runs a command that has to succeed with a list."""
        result = self.run("--formatter json " + words)
        return json.loads(result.require(result.status == 0 and not result.err).out)

    def query(self, sql, values=()):
        with contextlib.closing(sqlite3.connect(self.store, isolation_level=None)) as connection:
            return connection.execute(sql, values).fetchall()

    def dump(self):
        """Every row of every table."""
        tables = self.query("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name")
        return [(table, *row) for table, in tables for row in self.query(f"SELECT * FROM {table}")]

    def check(self):
        """The store is sound, and the lab's rules hold."""
        for rule, sql in RULES.items():
            found = self.query(sql)
            require(not found, f"{self.store}: broken: {rule}", *found)

    def copy(self, folder):
        """Makes `folder` a lab that is as this one."""
        shutil.copytree(self.folder, folder, dirs_exist_ok=True)
        return Lab(folder)

    def make_cluster(self, *hosts):
        """Puts the hosts, added as far as they are new, into one cluster."""
        for number, host in enumerate(hosts):
            if host != "host1":
                self.do(f"lab host add -n {host}")
            self.do(f"--host {host} dovra cluster " + (
                f"join -u {self.query('SELECT uuid FROM clusters')[0][0]}" if number else "new"))
        return self


def anonymous(rows, known=frozenset()):
    """The rows without what two runs of a command choose differently: new UUIDs, and times."""
    def mask(value):
        is_uuid = isinstance(value, str) and UUID.fullmatch(value)
        is_time = isinstance(value, int) and value > 10**12
        return "new" if (is_uuid or is_time) and value not in known else value
    return sorted((tuple(map(mask, row)) for row in rows), key=repr)
