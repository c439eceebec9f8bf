#!/usr/bin/env python3
"""killed_store.py SCRIPT_PROGRAM [SECONDS]: kills the program at random moments of thousands of saves.

Afterwards the store holds every save that was answered, perhaps the one that was under way, and nothing else; its file
is the user's alone, and the next start leaves nothing beside it. A second part does the same to the entries that a
calculation saves together: all of them are of one calculation. A third has two programs save side by side, one of them
being killed again and again: neither loses anything of the other's."""
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
seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 24
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


def killed_run(store, commands, chance):
    """One run, killed at a random moment; returns the number of answered commands."""
    process = start(store)
    answers = []
    reader = threading.Thread(target=lambda: answers.append(process.stdout.read()))
    writer = threading.Thread(target=lambda: feed(process, commands))
    reader.start()
    writer.start()
    time.sleep(chance.uniform(0.005, 0.25))
    process.kill()
    process.wait()
    reader.join()
    writer.join()
    return answers[0].count(b"ok\n")


def feed(process, commands):
    try:
        process.stdin.write(b"".join(commands))
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
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        lines = [(f"key{chance.randrange(6)}", chance.choice(values) + str(saves + i)) for i in range(4000)]
        count = killed_run(store, [command(*line) for line in lines], chance)
        state.update(lines[:count])
        found = dump(store).get("Settings", {})
        under_way = {**state, **dict(lines[count:count + 1])}
        assert found in (state, under_way), (count, found, state)
        state, saves, runs = found, saves + count, runs + 1
        check_folder(folder)
    return saves, runs


def calculated(folder, chance):
    """All entries are those of the last calculation that was answered, or of the one that was under way."""
    store = str(folder / "Tallyfin99.ini")
    last, runs = 0, 0
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        rounds = [f'type frmMain.txtIncome "{i}"\ntype frmMain.txtHours "{i}"\nclick frmMain.cmdToolBar(0)\n'.encode()
                  for i in range(last + 1, last + 2000)]
        answered = max(0, killed_run(store, [b"start\n"] + rounds, chance) - 1) // 3
        found = {"IncAmt": "0", "Hours": "0", **dump(store).get("Settings", {})}
        assert found["IncAmt"] == found["Hours"], found
        assert int(found["IncAmt"]) in (last + answered, last + answered + 1), (answered, last, found)
        last, runs = int(found["IncAmt"]), runs + 1
        check_folder(folder)
    return last, runs


def together(folder, chance):
    """Two programs on one store: one goes on and on, the other is killed again and again."""
    store = str(folder / "Tallyfin99.ini")
    steady = [(f"steady{i % 3}", str(i)) for i in range(2000)]
    process = start(store)
    writer = threading.Thread(target=feed, args=(process, [command(*line) for line in steady]))
    writer.start()
    state, saves = {}, 0
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        lines = [(f"other{i % 3}", f"{saves}-{i}") for i in range(4000)]
        count = killed_run(store, [command(*line) for line in lines], chance)
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
for part in (alone, calculated, together):
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        subprocess.run([program, folder / "Tallyfin99.ini"], input=b'store put User DontShow "1"\n', check=True,
                       stdout=subprocess.DEVNULL)
        print(part.__name__, part(folder, chance))
