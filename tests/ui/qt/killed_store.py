#!/usr/bin/env python3
"""killed_store.py SCRIPT_PROGRAM [SECONDS]: kills the program at random moments of thousands of saves.

Afterwards the store holds every save that was answered, perhaps the one that was under way, and nothing else; its file
is the user's alone, and the next start leaves nothing beside it. A second part has two programs save side by side,
one of them being killed again and again: neither loses anything of the other's."""
import json
import os
import pathlib
import random
import stat
import subprocess
import sys
import tempfile
import threading
import time

program = sys.argv[1]
seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 16
values = ["", "0", " blank ", "1,000.00", "@x", "line\nline\r\n", 'a "quoted" \\ text;', "\u00e9\U0001f600", "x" * 500, "\x00\x01f"]


def start(store):
    return subprocess.Popen([program, store], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def dump(store):
    """What a new start finds, and that it finds nothing to complain of."""
    run = subprocess.run([program, store], input=b"store\n", capture_output=True, check=True)
    assert run.stderr == b"", run.stderr
    return json.loads(run.stdout.decode()[2:])


def command(key, value):
    return f"store put Settings {key} {json.dumps(value, ensure_ascii=False)}\n".encode()


def killed_run(store, lines, chance):
    """One run, killed at a random moment; returns the number of answered saves."""
    process = start(store)
    answers = []
    reader = threading.Thread(target=lambda: answers.append(process.stdout.read()))
    writer = threading.Thread(target=lambda: feed(process, lines))
    reader.start()
    writer.start()
    time.sleep(chance.uniform(0.005, 0.25))
    process.kill()
    process.wait()
    reader.join()
    writer.join()
    return answers[0].count(b"ok\n")


def feed(process, lines):
    try:
        process.stdin.write(b"".join(command(*line) for line in lines))
        process.stdin.close()
    except OSError:
        pass  # it was killed


def check_folder(folder):
    assert os.listdir(folder) == ["Tallyfin99.ini"], os.listdir(folder)
    mode = stat.S_IMODE(os.stat(folder / "Tallyfin99.ini").st_mode)
    assert mode == 0o600, oct(mode)


def alone(folder, chance):
    """Every answered save is there, at most one more is."""
    store = str(folder / "Tallyfin99.ini")
    state, saves, runs = {}, 0, 0
    end = time.monotonic() + seconds / 2
    while time.monotonic() < end:
        lines = [(f"key{chance.randrange(6)}", chance.choice(values) + str(saves + i)) for i in range(4000)]
        count = killed_run(store, lines, chance)
        state.update(lines[:count])
        found = dump(store).get("Settings", {})
        under_way = {**state, **dict(lines[count:count + 1])}
        assert found in (state, under_way), (count, found, state)
        state, saves, runs = found, saves + count, runs + 1
        check_folder(folder)
    return saves, runs


def together(folder, chance):
    """Two programs on one store: one goes on and on, the other is killed again and again."""
    store = str(folder / "Tallyfin99.ini")
    steady = [(f"steady{i % 3}", str(i)) for i in range(2000)]
    process = start(store)
    writer = threading.Thread(target=feed, args=(process, steady))
    writer.start()
    state, saves = {}, 0
    end = time.monotonic() + seconds / 2
    while time.monotonic() < end:
        lines = [(f"other{i % 3}", f"{saves}-{i}") for i in range(4000)]
        count = killed_run(store, lines, chance)
        found = {key: value for key, value in dump(store)["Settings"].items() if key.startswith("other")}
        state.update(lines[:count])
        assert found in (state, {**state, **dict(lines[count:count + 1])}), (count, found, state)
        state, saves = found, saves + count
    answers = process.stdout.read().count(b"ok\n")
    writer.join()
    process.wait()
    assert answers == len(steady), answers
    assert {**state, **dict(steady)} == dump(store)["Settings"]
    check_folder(folder)
    return saves + answers


chance = random.Random(1999)
for part in (alone, together):
    with tempfile.TemporaryDirectory() as folder:
        print(part.__name__, part(pathlib.Path(folder), chance))
