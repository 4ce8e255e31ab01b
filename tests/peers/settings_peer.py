#!/usr/bin/env python3
"""Reads and changes an account's files through orvctl that plistlib wrote, and reads them back.

usage: settings_peer.py ORVCTL
"""
import datetime
import json
import os
import pathlib
import plistlib
import subprocess
import sys
import tempfile

FOREIGN = {
    "foreign_bool": True, "foreign_zero": 0, "foreign_large": 2**62, "foreign_negative": -5,
    "foreign_real": 0.1, "foreign_whole_real": 3.0, "foreign_text": "ä <&> \"中\"\n😀",
    "foreign_empty": "", "foreign_data": b"\x00\xff", "foreign_date": datetime.datetime(2020, 2, 29, 1, 2, 3),
    "foreign_list": [1, 1.0, True, "x", [], {}], "foreign_nested": {"a": {"b": [b"", False]}},
}
RECORD = FOREIGN | {
    "config_label": "Work", "user": "anna", "trace_level": 9, "show_green_checkmarks": False,
    "transfer_overhead_per_file": 0.75, "limited_connection_file_count": 2**40,
    "two_way_sync": "yes", "remote_access": 0, "badge_handled_file_extension": "doc,xls",
    "policy_backup_paths": ["/a", "/b"], "sync_projects_policy": {"p": 1},
}
IN_EFFECT = {
    "config_label": "Work", "user": "anna", "email": "anna", "trace_level": 9,
    "show_green_checkmarks": False, "transfer_overhead_per_file": 0.75,
    "limited_connection_file_count": 2**40, "two_way_sync": False, "remote_access": True,
    "badge_handled_file_extension": ["doc", "xls"], "policy_backup_paths": ["/a", "/b"],
    "sync_projects_policy": {"p": 1}, "policy_projects": -1, "bandwidth_safety_factor": 1.0,
}
ROWS = [["/home/anna/Docs", True], ["/home/anna", True], ["/Volumes/Data", True], ["/x", False]]
CHANGES = [
    ("trace_level", "-2", -2), ("two_way_sync", "true", True), ("team_name", "Ä <&> Söhne", "Ä <&> Söhne"),
    ("limited_connection_file_size", str(2**40), 2**40), ("badge_handled_file_extension", "a,b", "a,b"),
]


def typed(value):
    """The value with its types: in Python True == 1 == 1.0."""
    if isinstance(value, dict):
        return {key: typed(item) for key, item in value.items()}
    if isinstance(value, list):
        return [typed(item) for item in value]
    return type(value), value


def expect(what, found, expected):
    if typed(found) != typed(expected):
        sys.exit(f"{what}: {found!r} instead of {expected!r}")


def check(orvctl, home, form):
    folder = pathlib.Path(home) / "Library/Preferences/com.corvanta.orv"
    folder.mkdir(parents=True, exist_ok=True)
    environment = os.environ | {"HOME": home, "DBUS_SESSION_BUS_ADDRESS": f"unix:path={home}/no-bus"}
    record = folder / "user_info.plist"

    def run(*words):
        return subprocess.run([orvctl, *words], env=environment, check=True, capture_output=True, text=True).stdout

    record.write_bytes(plistlib.dumps(RECORD, fmt=form))
    selection = plistlib.dumps(ROWS + [["/lone"], "foreign", [1, 2]], fmt=form)
    (folder / "storage_info.plist").write_bytes(selection)

    listed = json.loads(run("settings", "list", "--json"))
    for key, value in IN_EFFECT.items():
        expect(f"list: {key}", listed[key], value)
        expect(f"get: {key}", json.loads(run("settings", "get", key, "--json")), value)
    expect("foreign keys listed", sorted(FOREIGN.keys() & listed.keys()), [])
    expect("rows", json.loads(run("folders", "rows", "--json")), ROWS)
    expect("roots", json.loads(run("folders", "roots", "--json")), ["/home/anna", "/Volumes/Data"])
    expect("the selection's bytes", (folder / "storage_info.plist").read_bytes(), selection)

    for key, text, _ in CHANGES:
        run("settings", "set", key, text)
    expect("the record", plistlib.loads(record.read_bytes()), RECORD | {key: value for key, _, value in CHANGES})
    print(f"{form.name}: {len(RECORD)} keys and {len(CHANGES)} changes agree")


def main():
    for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
        with tempfile.TemporaryDirectory() as home:
            check(sys.argv[1], home, form)


if __name__ == "__main__":
    main()
