#!/usr/bin/env python3
"""Every name the module asks of its host is one that each program that loads it offers, and all are bound at its start."""
import subprocess
import sys


def names(file, *options):
    listed = subprocess.run(["nm", "-D", "--format=posix", *options, file], check=True, capture_output=True, text=True)
    return {line.split()[0].partition("@")[0] for line in listed.stdout.splitlines()}


def libraries(file):
    listed = subprocess.run(["ldd", file], check=True, capture_output=True, text=True).stdout
    return [words[2] for words in map(str.split, listed.splitlines()) if len(words) > 2 and words[1] == "=>"]


def main(module, *programs):
    wanted = {name for name in names(module, "--undefined-only") if name.startswith("_Z")}
    for library in libraries(module):
        wanted -= names(library, "--defined-only")
    wrong = [] if wanted else [f"{module} asks its host for nothing"]
    for program in programs:
        missing = sorted(wanted - names(program, "--defined-only"))
        wrong += [f"{program} does not offer {name}" for name in missing]
    flags = subprocess.run(["readelf", "-d", module], check=True, capture_output=True, text=True).stdout
    if "NOW" not in flags:
        wrong.append(f"{module} is not bound at its start")
    print("\n".join(wrong) or f"{len(wanted)} names are offered by {len(programs)} programs")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
