"""workbench_script_test.py RUNNER PROGRAM FILE: plays the script of the workbench on a copy of a file and
looks for what a user must see on the way."""
import pathlib
import shutil
import subprocess
import sys
import tempfile

# What is shown after a step, in the order of the script.
EXPECTED = [
    ('> "language"', "2 of 6 found"),
    ("> Ctrl+L", "6 of 33 elements"),
    ("> F7", "The document is well-formed."),
    ('> "<broken>"', "balloon: Line"),
    ('> "<link kind="new">', "*updates.xml - Workbench"),
    ("> come back from another program", "Another program has changed updates.xml. Load it again?"),
    ("> Ctrl+S", "Replace its version?"),
    ("> Alt+Y", 'in the file: <?xml version="1.0" encoding="utf-8"?> ... <link kind="new">http://www.example.com/ä<'),
    ("broken.xml", "could not be opened: 3:8: mismatched tag"),
    ("empty.xml", "could not be opened: 1:1: no element found"),
    ("missing.xml", "could not be opened: The file could not be located."),
    ("> Ctrl+S", "could not be saved: The file could not be accessed."),
    ("> come back from another program", "plain.xml is not there any more."),
    ("> Ctrl+S", "Saved "),
    ('> "5"', "Give a number from 100 to 1000000."),
    ("> Ctrl+F7", "Ctrl+F7 is free."),
    ("> Enter", "&Check strictly -> Ctrl+F7"),
    ("> Ctrl+F7", "The document is well-formed."),
    ("workbench.reg", "[HKEY_CURRENT_USER\\Software\\Quorvel\\Workbench script]"),
    ("> Alt+H", "Check For Updates"),
    ("> Ext+Down", "Name | Tiefe | Attribute | Text | Position"),
    ("> Ctrl+Tab", "&Zuweisen..."),
    ("> Alt+F4", "The workbench has ended."),
]


def main(runner, program, file):
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(file, folder)
        result = subprocess.run(["sh", runner, program, pathlib.Path(file).name], cwd=folder,
                                capture_output=True, timeout=110)
    text = result.stdout.decode("utf-8").replace("\r", "")
    place = 0
    for step, shown in EXPECTED:
        begin = text.find(step, place)
        end = text.find(shown, begin) if begin >= 0 else -1
        if end < 0:
            print(text)
            print(f"after {step!r}: {shown!r} was not shown")
            return 1
        place = end
    print(result.stderr.decode("utf-8", "replace"))
    return result.returncode


sys.exit(main(*sys.argv[1:]))
