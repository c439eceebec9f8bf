#!/usr/bin/env python3
"""Feeds scripts to the headless program and compares its answers with those that are written down.

replay.py PROGRAM PATTERN

A replay is a pair NAME.script and NAME.expected (or both gzipped: NAME.script.gz, NAME.expected.gz). PATTERN is a path
without the ending, with wildcards. Of a refusal the first word counts. Each replay runs in a process of its own, on a
store in memory. Exit status 1 where an answer differs or is missing, where there is one too many, where the program
doesn't end with status 0, or where no replay matches."""

import glob
import gzip
import pathlib
import subprocess
import sys


def lines(path):
    data = path.read_bytes()
    return (gzip.decompress(data) if path.suffix == ".gz" else data).decode().splitlines()


def same(got, wanted):
    if got.startswith("! ") and wanted.startswith("! "):
        return got.split()[1:2] == wanted.split()[1:2]
    return got == wanted


def difference(program, script):
    """What went wrong with a replay, as text; empty where all answers agree."""
    commands = [line for line in lines(script) if line.strip() and not line.startswith("#")]
    wanted = lines(script.with_name(script.name.replace(".script", ".expected")))
    run = subprocess.run(
        [program], input="\n".join(commands) + "\n", capture_output=True, encoding="utf-8", timeout=120
    )
    got = run.stdout.splitlines()
    for i, (command, answer) in enumerate(zip(commands, wanted)):
        if i >= len(got) or not same(got[i], answer):
            reply = got[i] if i < len(got) else "(no answer) " + run.stderr
            return f"answer {i + 1}, to {command}\n  wanted {answer}\n  got    {reply}"
    if not len(commands) == len(wanted) == len(got):
        return f"{len(commands)} commands, {len(wanted)} answers wanted, {len(got)} given"
    if run.returncode != 0:
        return f"exit status {run.returncode}\n{run.stderr}"
    return ""


def main():
    program, pattern = sys.argv[1:]
    scripts = sorted(pathlib.Path(name) for ending in (".script", ".script.gz") for name in glob.glob(pattern + ending))
    failures = 0
    for script in scripts:
        problem = difference(program, script)
        if problem:
            failures += 1
            print(f"{script.name}: {problem}")
    print(f"{len(scripts) - failures} of {len(scripts)} replays agree")
    return 0 if scripts and not failures else 1


if __name__ == "__main__":
    sys.exit(main())
