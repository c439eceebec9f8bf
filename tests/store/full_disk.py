#!/usr/bin/env python3
"""full_disk.py SCRIPT_PROGRAM: the store on a full disk. Stored texts stay and can be read, and saves succeed when there is
room again. Skipped (77) where no disk can be mounted."""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

program = sys.argv[1]


def run(store, *lines):
    text = "".join(line + "\n" for line in (*lines, "store"))
    done = subprocess.run([program, store], input=text, capture_output=True, text=True, timeout=60)
    assert (done.returncode, done.stderr) == (0, ""), done
    return json.loads(done.stdout.splitlines()[-1][2:])


with tempfile.TemporaryDirectory() as folder:
    disk = pathlib.Path(folder)
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k", "tmpfs", disk], stderr=subprocess.DEVNULL).returncode:
        print("skipped: a disk of its own takes root")
        sys.exit(77)
    try:
        store = disk / "Tallyfin99.sqlite"
        filler = disk / "filler"
        # The free bytes when the program starts on an empty disk, and on one with a store.
        for room in range(0, 160, 4):
            filler.write_bytes(bytes((256 - room) * 1024))
            held = run(store, 'store put User UName "Pat"')
            assert held in ({}, {"User": {"UName": "Pat"}}), (room, held)
            assert run(store) == held, room
            filler.unlink()
            assert run(store, 'store put User UName "Ann"') == {"User": {"UName": "Ann"}}

            used = sum(path.stat().st_blocks * 512 for path in disk.iterdir())
            filler.write_bytes(bytes(max(0, 256 * 1024 - used - room * 1024)))
            lines = [f'store put User UName "{"x" * 3000}{i}"' for i in range(40)]
            held = run(store, *lines)
            assert held["User"]["UName"].lstrip("x") in {"Ann", *map(str, range(40))}, room
            assert run(store) == held, room
            filler.unlink()
            assert run(store) == held, room
            assert os.listdir(disk) == [store.name], os.listdir(disk)
            store.unlink()
    finally:
        subprocess.run(["umount", disk], check=True)
    print("as it should on a full disk")
