#!/usr/bin/env python3
"""killed_store.py SCRIPT_PROGRAM [SECONDS]: kills the program at random moments of thousands of saves.

Afterwards the store holds every save that was answered, perhaps the one that was under way, and nothing else; its file
is the user's alone, and the next start leaves nothing beside it. A second part does the same to calculations, which save
their entries one by one in their order. In a third two programs save side by side, and each is killed at a moment of its
own: neither loses anything of the other's."""
import concurrent.futures
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
name = "Tallyfin99.sqlite"
seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 24
values = ["", "0", " blank ", "1,000.00", "@x", "line\nline\r\n", 'a "quoted" \\ text;', "\u00e9\U0001f600", "x" * 500, "\x00\x01f"]


def start(store):
    return subprocess.Popen([program, store], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def dump(store):
    """The texts that a new start finds; fails where the file is damaged."""
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
    assert os.listdir(folder) == [name], os.listdir(folder)
    mode = stat.S_IMODE(os.stat(folder / name).st_mode)
    assert mode == 0o600, oct(mode)


def alone(folder, chance):
    """Every answered save is stored, and at most one more."""
    store = str(folder / name)
    state, saves, runs = {}, 0, 0
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        lines = [(f"key{chance.randrange(6)}", chance.choice(values) + str(saves + i)) for i in range(12000)]
        count = killed_run(store, [command(*line) for line in lines], chance)
        state.update(lines[:count])
        found = dump(store).get("Settings", {})
        under_way = {**state, **dict(lines[count:count + 1])}
        assert found in (state, under_way), (count, found, state)
        state, saves, runs = found, saves + count, runs + 1
        check_folder(folder)
    return saves, runs


def calculated(folder, chance):
    """The income, saved first, is that of the last answered calculation or of the unfinished one; the hours, saved later, are
    of the same calculation or of the one before."""
    store = str(folder / name)
    last, runs = 0, 0
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        rounds = [f'type frmMain.txtIncome "{i}"\ntype frmMain.txtHours "{i}"\nclick frmMain.cmdToolBar(0)\n'.encode()
                  for i in range(last + 1, last + 5000)]
        answered = max(0, killed_run(store, [b"start\n"] + rounds, chance) - 1) // 3
        entries = {"IncAmt": "0", "Hours": "0", **dump(store).get("Settings", {})}
        income, hours = int(entries["IncAmt"]), int(entries["Hours"])
        assert income in (last + answered, last + answered + 1), (answered, last, entries)
        assert hours in (income, income - 1), entries
        last, runs = income, runs + 1
        check_folder(folder)
    return last, runs


def together(folder, chance):
    """Two programs on one store, each killed at a random moment."""
    store = str(folder / name)
    states, saves, runs = [{}, {}], [0, 0], 0
    end = time.monotonic() + seconds / 3
    while time.monotonic() < end:
        lines = [[(f"program{who}-{chance.randrange(5)}", f"{saves[who]}-{i}") for i in range(12000)] for who in (0, 1)]
        moments = [random.Random(chance.random()) for _ in (0, 1)]
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            counts = list(pool.map(lambda who: killed_run(store, [command(*line) for line in lines[who]], moments[who]),
                                   (0, 1)))
        found = dump(store).get("Settings", {})
        for who, count in enumerate(counts):
            mine = {key: value for key, value in found.items() if key.startswith(f"program{who}-")}
            states[who].update(lines[who][:count])
            under_way = {**states[who], **dict(lines[who][count:count + 1])}
            assert mine in (states[who], under_way), (who, count, mine, states[who])
            states[who], saves[who] = mine, saves[who] + count
        runs += 1
        check_folder(folder)
    return saves, runs


chance = random.Random(1999)
for part in (alone, calculated, together):
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        subprocess.run([program, folder / name], input=b'store put User DontShow "1"\n', check=True,
                       stdout=subprocess.DEVNULL)
        print(part.__name__, part(folder, chance))
