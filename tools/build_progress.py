#!/usr/bin/env python3
"""Shows how far a build is, and keeps its output in a log.

    BUILD 2>&1 | build_progress.py LOG

On a terminal one line is rewritten again and again. Elsewhere, such as in a log file, a line is written
for each tenth of the work and for each half minute. A line "build: done" at the end of the input means
success; without it the exit code is 1, and the compiler's errors or the last lines are shown.
"""

import re
import sys
import time

DONE = "build: done"
SHOWN_ON_FAILURE = 60
HALF_A_MINUTE = 30


def failure(lines):
    """The useful part of the log of a failed build: from the first failed step on, or the end."""
    first = next((i for i, line in enumerate(lines) if line.startswith("FAILED: ")), None)
    return lines[-SHOWN_ON_FAILURE:] if first is None else lines[first:][:SHOWN_ON_FAILURE]


class Progress:
    def __init__(self, is_terminal, clock=time.monotonic):
        self.is_terminal = is_terminal
        self.clock = clock
        self.start = self.shown_at = clock()
        self.shown_tenth = 0

    def text(self, line):
        """The text to show for a line of the build, or None."""
        step = re.match(r"\[(\d+)/(\d+)\]", line)
        if not step:
            return None
        done, total = int(step[1]), int(step[2])
        now = self.clock()
        tenth = 10 * done // total
        if not self.is_terminal and tenth == self.shown_tenth and now - self.shown_at < HALF_A_MINUTE:
            return None
        self.shown_tenth, self.shown_at = tenth, now
        seconds = int(now - self.start)
        return f"  {done} of {total} steps, {seconds // 60}:{seconds % 60:02} min"


def main(log_path):
    progress = Progress(sys.stdout.isatty())
    lines = []
    with open(log_path, "w", encoding="utf-8") as log:
        for line in sys.stdin:
            log.write(line)
            lines.append(line)
            text = progress.text(line)
            if text:
                print(f"\r{text}" if progress.is_terminal else text, end="" if progress.is_terminal else "\n", flush=True)
    if progress.is_terminal:
        print()
    if lines and lines[-1].strip() == DONE:
        return 0
    sys.stderr.writelines(failure(lines))
    print(f"The build failed; its output is in {log_path}.", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
