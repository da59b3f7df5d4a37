#!/usr/bin/env python3
"""Notifies the stand-in host's management daemon about datastores.

notifyDatastore.py -t EVENT -d DATASTORES

There is no such daemon: notifications are appended to var/log/notifyDatastore.log below the host's
root, one JSON object a line.
"""
import json
import os
import pathlib
import sys
import time

os.umask(os.umask(0o022) | 0o022)  # a lab is for its owner alone

EVENTS = ("PreUnmount", "FailedUnmount")


def main(arguments):
    # Not argparse: a datastore's name may look like an option.
    if len(arguments) not in (3, 4) or arguments[0] != "-t" or arguments[2] != "-d":
        sys.exit("usage: notifyDatastore.py -t EVENT -d DATASTORES")
    event = arguments[1]
    if event not in EVENTS:
        sys.exit(f"unknown event {event!r}; expected one of {', '.join(EVENTS)}")
    log = pathlib.Path(__file__).resolve().parents[5] / "var" / "log" / "notifyDatastore.log"
    for directory in (log.parent.parent, log.parent):  # not the root: its host may be gone by now
        directory.mkdir(exist_ok=True)
    entry = {
        "time": time.strftime("%Y-%m-%dT%H:%M:%S%z"),
        "event": event,
        "datastores": arguments[3] if len(arguments) == 4 else "",
    }
    with log.open("a", encoding="utf-8", errors="surrogateescape") as file:
        file.write(json.dumps(entry) + "\n")


main(sys.argv[1:])
