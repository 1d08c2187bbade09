# SPDX-License-Identifier: MIT
"""Runs the Python and shell examples of a Markdown document, each in a
folder of its own, and names the document's line of every one that fails.

A block preceded by a line "<!-- checked, not run: REASON -->" is only
checked for syntax (compiled by Python, parsed by bash -n): it needs what a
test cannot have, such as root or a database server.

    run_snippets.py DOCUMENT --python INTERPRETER --pythonpath DIR --tools DIR
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile

FENCE = re.compile(r"^```(\w*)\s*$")
SYNTAX_ONLY = re.compile(r"^<!-- checked, not run: .+ -->$")


def snippets(path):
    """(line, language, text, run) for every python and sh block."""
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    found = []
    i = 0
    while i < len(lines):
        opening = FENCE.match(lines[i])
        if not opening or not opening.group(1):
            i += 1
            continue
        language = opening.group(1)
        start = i + 1
        end = start
        while end < len(lines) and not lines[end].startswith("```"):
            end += 1
        previous = lines[i - 1] if i > 0 else ""
        if language in ("python", "sh"):
            found.append((start + 1, language, "\n".join(lines[start:end]) + "\n",
                          not SYNTAX_ONLY.match(previous)))
        i = end + 1
    return found


def run(command, folder, environment, text=None):
    done = subprocess.run(command, cwd=folder, env=environment, input=text, text=True,
                          capture_output=True, timeout=120)
    return done.returncode, done.stdout + done.stderr


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("document")
    parser.add_argument("--python", required=True)
    parser.add_argument("--pythonpath", required=True)
    parser.add_argument("--tools", required=True)
    options = parser.parse_args()
    # The examples run in folders of their own.
    options.pythonpath = os.path.abspath(options.pythonpath)
    options.tools = os.path.abspath(options.tools)

    name = os.path.basename(options.document)
    failures = 0
    counted = {"python": 0, "sh": 0}
    for line, language, text, really in snippets(options.document):
        counted[language] += 1
        with tempfile.TemporaryDirectory(prefix="varnock-snippet-") as folder:
            environment = dict(os.environ)
            environment["PYTHONPATH"] = options.pythonpath
            environment["PATH"] = options.tools + os.pathsep + environment.get("PATH", "")
            environment["VARNOCK_EVENT_LOG"] = "file:" + os.path.join(folder, "events.jsonl")
            environment.pop("VARNOCK_DSN", None)
            environment.pop("VARNOCK_SQL_TRACE", None)
            if language == "python":
                if really:
                    status, output = run([options.python, "-"], folder, environment, text)
                else:
                    status, output = run([options.python, "-c", "import sys; compile(sys.stdin.read(), 'snippet', 'exec')"],
                                         folder, environment, text)
            else:
                command = ["bash", "-e", "-o", "pipefail", "-s"] if really else ["bash", "-n"]
                status, output = run(command, folder, environment, text)
        if status != 0:
            failures += 1
            print("%s:%d: the %s example %s (status %d):\n%s"
                  % (name, line, language, "failed" if really else "does not parse", status,
                     output), file=sys.stderr)
    print("%s: %d Python and %d shell examples, %d failed"
          % (name, counted["python"], counted["sh"], failures))
    if counted["python"] == 0 or counted["sh"] == 0:
        print("%s: expected Python and shell examples" % name, file=sys.stderr)
        return 1
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
