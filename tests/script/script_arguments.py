#!/usr/bin/env python3
"""script_arguments.py SCRIPT_PROGRAM: the headless program's command line, and input of any bytes."""
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

program = os.path.abspath(sys.argv[1])


def run(*arguments, text=b"store\n"):
    return subprocess.run([program, *arguments], input=text, capture_output=True, timeout=60)


# It needs no desktop, and none of its libraries.
libraries = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
assert "libsqlite3" in libraries and "Qt" not in libraries, libraries

with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    usage = run("a", "b")
    assert (usage.returncode, usage.stdout) == (2, b"") and usage.stderr.startswith(b"usage: tallyfin99-script")

    assert (run("--unknown").returncode, run("--unknown").stdout) == (2, b"")
    version = run("--version")
    assert version.returncode == 0 and re.fullmatch(rb"tallyfin99-script \d+\.\d+\.\d+\n", version.stdout), version

    # The manual page describes every command, and no other.
    shown = run("--help")
    assert shown.returncode == 0 and shown.stdout.startswith(b"usage: tallyfin99-script")
    commands = set(shown.stdout.decode().rpartition(": ")[2].split())
    page = (pathlib.Path(__file__).resolve().parents[2] / "packaging/tallyfin99-script.1").read_text()
    section = page[page.index(".SH COMMANDS"):page.index(".SH PROPERTIES")]
    told = set(re.findall(r'^\.T[PQ]\n\.BI? "?([a-z]+)', section, re.M)) | set(
        re.findall(r'^\.T[PQ]\n\.BR ([a-z]+) ', section, re.M))
    assert told == commands, told ^ commands

    memory = run()
    assert (memory.returncode, memory.stdout, memory.stderr) == (0, b"= {}\n", b"")

    # A store that survives the process, in a folder that was missing, with umask 0.
    store = folder / "new" / "Tallyfin99.sqlite"
    os.umask(0)
    run(str(store), text=b'store put User UName "Pat Doe"\n')
    assert run(str(store)).stdout == b'= {"User":{"UName":"Pat Doe"}}\n'
    assert [path.stat().st_mode & 0o777 for path in (store, store.parent)] == [0o600, 0o700]

    # A store that can't be used keeps nothing, and nothing is reported.
    useless = run(str(folder), text=b'store put User UName "Pat"\nstore\n')
    assert (useless.returncode, useless.stdout, useless.stderr) == (0, b"ok\n= {}\n", b""), useless

    # For any input, each line has an answer.
    long_line = b'type frmMain.txtIncome "' + b"9" * 5_000_000 + b'"\n'
    assert run(text=b"start\n" + long_line).stdout.count(b"\n") == 2
    noise = bytes(range(256)) * 4000
    answers = run(text=noise)
    lines = [line.strip(b" \t\r") for line in noise.split(b"\n")]
    assert answers.returncode == 0
    assert answers.stdout.count(b"\n") == sum(1 for line in lines if line and not line.startswith(b"#"))

# Output that can't be written, and a missing file, end in one line and status 2.
def refused(command, **options):
    done = subprocess.run(["sh", "-c", command, program], input=b"store\n", stderr=subprocess.PIPE, timeout=60, **options)
    assert done.returncode == 2 and done.stderr.count(b"\n") == 1, done
    return done.stderr


assert b"standard output: No space left" in refused('"$0" >/dev/full')
assert b"closed" in refused('"$0" >&-')
assert b"closed" in refused('"$0" <&-')
assert b"no name" in refused('"$0" ""')
escaped = refused('cd "$(mktemp -d)" && rmdir "$PWD" && "$0" "$(printf "a\\033[31m\\233")"')
assert b"a\\x1b[31m\\x9b" in escaped and b"\x1b" not in escaped, escaped
assert b"No such file" in refused('cd "$(mktemp -d)" && rmdir "$PWD" && "$0" store')
broken = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
broken.stdout.close()
assert b"Broken pipe" in broken.communicate(b"store\n", timeout=60)[1] and broken.returncode == 2

# A call that is interrupted, or that would have to wait, is made again.
sanitized = "asan" in libraries
if shutil.which("strace"):
    for call, error in itertools.product(("read",) if sanitized else ("read", "write"), ("EINTR", "EAGAIN")):
        with tempfile.TemporaryDirectory() as folder:
            lines, log, asked = (pathlib.Path(folder, name) for name in ("lines", "log", "asked"))
            lines.write_bytes(b"store\n" * 20_000)
            with open(lines, "rb") as source, open(asked, "wb") as sink:
                done = subprocess.run(["strace", "-qq", "-o", log, "-P", lines if call == "read" else asked, "-e",
                                       f"inject={call}:error={error}:when=1+3", program], stdin=source, stdout=sink,
                                      stderr=subprocess.PIPE, timeout=60,
                                      env=os.environ | {"ASAN_OPTIONS": "detect_leaks=0"})
            assert b"(INJECTED)" in log.read_bytes(), (call, error)
            assert (done.returncode, done.stderr, asked.read_bytes()) == (0, b"", b"= {}\n" * 20_000), (call, error, done)

# A line without memory for it is answered, and the next one is read.
if b"asan" not in subprocess.run(["ldd", program], capture_output=True).stdout:  # the sanitizer reserves more than that
    limited = subprocess.run(["sh", "-c", 'ulimit -v 100000; exec "$0"', program], capture_output=True, timeout=60,
                             input=b'store put User UName "' + b"x" * 100_000_000 + b'"\nstore\n')
    assert (limited.returncode, limited.stdout) == (0, b"! memory\n= {}\n"), limited.stderr[:200]
