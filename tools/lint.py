#!/usr/bin/env python3
"""Runs the linter on what changed and on everything that includes it.

    tools/lint.py BUILD            since the commit in tools/lint-base.txt, up to which everything is known to be clean
    tools/lint.py BUILD --all      everything; when it is clean, HEAD becomes that commit

BUILD is a build folder with compile_commands.json of all that is linted. Everything is linted too when the commit is
unknown here or when the linter's own settings changed since.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BASE = ROOT / "tools" / "lint-base.txt"
FOLDERS = ("src", "tests", "tools", "bench", "fuzz")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def git(*arguments):
    return subprocess.run(["git", "-C", ROOT, *arguments], capture_output=True, text=True, check=True).stdout


def code_files():
    return {path for path in git("ls-files", *FOLDERS).split("\n") if path.endswith((".cpp", ".h")) and (ROOT / path).exists()}


def includers(files):
    """Which files include which, by the folders that the build looks in."""
    found = {}
    for file in files:
        folder = os.path.dirname(file)
        for name in INCLUDE.findall((ROOT / file).read_text(encoding="utf-8")):
            for start in (folder, *FOLDERS):
                target = os.path.normpath(f"{start}/{name}")
                if target in files:
                    found.setdefault(target, set()).add(file)
                    break
    return found


def changed_since(commit):
    """The files that differ from `commit`, or None when everything has to be looked at."""
    try:
        git("merge-base", "--is-ancestor", commit, "HEAD")
        names = set(git("diff", "--name-only", commit).split("\n"))
    except subprocess.CalledProcessError:
        return None
    return None if {".clang-tidy", "tests/.clang-tidy"} & names else names


def with_includers(names, files):
    graph, reached, waiting = includers(files), set(), list(names & files)
    while waiting:
        file = waiting.pop()
        if file not in reached:
            reached.add(file)
            waiting.extend(graph.get(file, ()))
    return reached


def lint(build, file):
    run = subprocess.run(["clang-tidy", "--quiet", "-p", build, file], cwd=ROOT, capture_output=True, text=True)
    if run.returncode != 0:
        print(f"{run.stdout}{run.stderr if not run.stdout else ''}", flush=True)
    return run.returncode == 0


def main(build, everything):
    files = code_files()
    names = None if everything or not BASE.exists() else changed_since(BASE.read_text().strip())
    compiled = {os.path.relpath(entry["file"], ROOT) for entry in json.loads((pathlib.Path(build) / "compile_commands.json").read_text())}
    sources = sorted((files if names is None else with_includers(names, files)) & compiled)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        clean = list(pool.map(lambda file: lint(build, file), sources))
    print(f"{len(clean)} files linted, {clean.count(False)} with findings")
    if not all(clean):
        return 1
    if everything:
        BASE.write_text(git("rev-parse", "HEAD"))
    return 0


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3) or sys.argv[2:] not in ([], ["--all"]):
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], len(sys.argv) == 3))
