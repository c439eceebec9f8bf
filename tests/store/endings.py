#!/usr/bin/env python3
"""endings.py SCRIPT_PROGRAM BATCH_PROGRAM [DESKTOP_PROGRAM]: SIGTERM, SIGINT and SIGHUP end the programs with the same
cleanup as a normal end. No file stays beside the store, above all no log with old texts."""
import os
import pathlib
import select
import signal
import subprocess
import sys
import tempfile
import time

script, batch, *desktop = sys.argv[1:]
signals = [signal.SIGTERM, signal.SIGINT, signal.SIGHUP]
patience = 120  # seconds; only a failure takes as long


def until(true):
    end = time.monotonic() + patience
    while not true():
        assert time.monotonic() < end, "nothing happens"
        time.sleep(0.01)


def start(*command, **options):
    # A shell in the background ignores SIGINT, and its children would too.
    return subprocess.Popen(command, **{"stdin": subprocess.PIPE, "stdout": subprocess.PIPE} | options,
                            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))


for ending in signals:
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name) / "Tallyfin99"
        store = folder / "Tallyfin99.sqlite"
        process = start(script, store)
        process.stdin.write(b'store put User USSN "123-45-6789"\nstore put User USSN "-"\nstore put User DontShow "1"\n')
        process.stdin.flush()
        assert [process.stdout.readline() for _ in range(3)] == [b"ok\n"] * 3
        process.stdin.write(b'store put User USSN "half a line')
        process.stdin.flush()
        process.send_signal(ending)
        assert process.wait(patience) == -ending, process.returncode
        assert os.listdir(folder) == [store.name], os.listdir(folder)
        assert b"123-45-6789" not in store.read_bytes() and b"half" not in store.read_bytes()

        for program in desktop:
            process = start(program, env=os.environ | {"XDG_CONFIG_HOME": name, "QT_QPA_PLATFORM": "offscreen"})
            until((folder / (store.name + "-shm")).exists)
            process.send_signal(ending)
            assert process.wait(patience) == 0, process.returncode
            assert os.listdir(folder) == [store.name], os.listdir(folder)

    # Only whole rows are written: not the one that was read in part.
    process = start(batch)
    process.stdin.write(b"income,frequency\n" + b"1000,Weekly\n" * 200 + b"20")
    process.stdin.flush()
    out = process.stdout.readline() + process.stdout.readline()
    process.send_signal(ending)
    rest, _ = process.communicate(timeout=patience)
    assert process.returncode == -ending, process.returncode
    assert (out + rest).endswith(b"\n")

    # The signal also ends a program that waits for room in a pipe that nobody reads.
    for program, line in ((script, b"store\n"), (batch, b"1000,Weekly\n")):
        with tempfile.TemporaryFile() as lines:
            lines.write(b"income,frequency\n" + line * 50_000)
            lines.seek(0)
            process = start(program, stdin=lines)
            # Once it has written, it sleeps only while the pipe is full.
            until(lambda: select.select([process.stdout], [], [], 0)[0] and
                  ") S " in pathlib.Path(f"/proc/{process.pid}/stat").read_text())
            process.send_signal(ending)
            assert process.wait(patience) == -ending, process.returncode

# An ignored signal stays ignored, for nohup.
process = subprocess.Popen([script], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                           preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
process.stdin.write(b"store\n")
process.stdin.flush()
assert process.stdout.readline() == b"= {}\n"
process.send_signal(signal.SIGHUP)
assert process.communicate(b"store\n", timeout=patience)[0] == b"= {}\n" and process.returncode == 0
print("ended in order")
