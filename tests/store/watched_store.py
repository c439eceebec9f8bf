#!/usr/bin/env python3
"""watched_store.py SCRIPT_PROGRAM: the system calls of the store, by strace.

Every file and folder is the user's alone from the call that makes it. A calculation makes ten saves, each by itself and
before the next, in their order. Nothing but the store, what SQLite keeps beside it and the folder is opened for writing."""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

program = sys.argv[1]
calls = "openat,open,creat,mkdir,mkdirat,pwrite64,write,fchmod,chmod,fchmodat,rename,link,symlink,unlink"
saves = ["IncAmt76543.21", "401k0", "NotTax0", "SSExmp0", "Hours12345", "State0", "Deps2", "Frequency2", "MaritalStat1",
         "LocalAmt0"]


def traced(store, lines):
    """The system calls of a run with umask 0, including its output."""
    log = store.parent.parent / "calls"
    os.umask(0)
    subprocess.run(["strace", "-f", "-y", "-xx", "-s", "5000", "-e", f"trace={calls}", "-o", log, program, store],
                   input="".join(line + "\n" for line in lines), text=True, check=True, stdout=subprocess.DEVNULL,
                   # Leak detection doesn't work under strace, and the counts of a coverage build aren't a file of the program.
                   env=os.environ | {"ASAN_OPTIONS": "detect_leaks=0", "LLVM_PROFILE_FILE": "/dev/null"})
    # With -xx all texts are hexadecimal.
    text = re.sub(r"(?:\\x[0-9a-f]{2})+", lambda match: bytes.fromhex(match[0].replace("\\x", "")).decode("latin-1"),
                  log.read_text())
    # A page has many zeros and may contain line ends. A call begins with the process number, padded with blanks.
    return re.split(r"\n(?=\d+ )", text)


with tempfile.TemporaryDirectory() as folder:
    store = pathlib.Path(folder) / "config" / "Tallyfin99.sqlite"
    start = ["start", "click frmName.cmdExit", "pick frmMain.lstFrequency 1", "pick frmMain.cboExemptions 2"]
    entries = ["type frmMain.txtIncome \"76543.21\"", "type frmMain.txtHours \"12345\"", "poke frequency 2",
               "click frmMain.optStatus(1)", "click frmMain.cmdToolBar(0)"]
    log = traced(store, start + entries)

    # --- Modes at creation
    making = [call for call in log if "O_CREAT" in call and " = -1" not in call and '"/dev/null"' not in call]
    files = {re.search(r'"([^"]*)"', call)[1]: call for call in making}
    beside = {str(store) + ending for ending in ("", "-journal", "-wal", "-shm")}
    assert beside == set(files), set(files)
    for call in making:
        assert re.search(r"O_CREAT.*, 0600\)", call, re.S), call
    folders = [call for call in log if re.match(r"\d+ +mkdir", call) and " = 0" in call]
    assert len(folders) == 1 and str(store.parent) in folders[0], folders
    assert store.parent.stat().st_mode & 0o777 == 0o700
    for call in log:
        if re.match(r"\d+ +open", call) and re.search(r"O_WRONLY|O_RDWR", call) and '"/dev/null"' not in call:
            assert re.search(r'"([^"]*)"', call)[1] in beside, call

    # --- Ten saves in order
    # SQLite appends the page that a save has changed to its log, with rows as section, key and text.
    def is_page(call):
        return re.match(r"\d+ +pwrite64\(\d+<[^>]*-wal>", call) and ", 4096, " in call

    answers = [i for i, call in enumerate(log) if re.match(r"\d+ +write\(1<", call)]
    before = [call for call in log[:answers[-2]] if is_page(call)][-1]
    pages = [call for call in log[answers[-2]:answers[-1]] if is_page(call)]
    assert len(pages) == len(saves), len(pages)
    for number, row in enumerate(saves):
        found = ["Settings" + row in page for page in [before, *pages]]
        assert found == [False] * (number + 1) + [True] * (len(saves) - number), (row, found)
    print(len(files), "files made,", len(pages), "saves of a calculation in their order")
