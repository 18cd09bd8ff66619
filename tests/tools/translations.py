#!/usr/bin/env python3
"""Every catalogue translates every text, and what it puts on the smallest card is wholly shown there.

Usage: translations.py BUILD_FOLDER
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

build = pathlib.Path(sys.argv[1]).resolve()
catalogues = pathlib.Path(__file__).resolve().parents[2] / "translations"
PROGRESS = json.dumps({"title": "", "kind": "progress", "symbol": "flag.fill", "progress": 1.88})


def text_marks(language, home, *choices, design=None):
    (home / "passwd").write_text(f"user:x:{os.getuid()}:{os.getgid()}::{home}:/bin/sh\n")
    (home / "group").write_text(f"user:x:{os.getgid()}:\n")
    wrapped = {"LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": str(home / "passwd"),
               "NSS_WRAPPER_GROUP": str(home / "group"), "NSS_WRAPPER_DISABLE_DEEPBIND": "1",
               "ASAN_OPTIONS": "verify_asan_link_order=0"}
    answer = subprocess.run([build / "orvel", "inspect", "--lang", language, *choices], input=design, text=True,
                            env=os.environ | wrapped, stdout=subprocess.PIPE, check=True)
    return [mark for mark in json.loads(answer.stdout)["marks"] if mark["mark"] == "text"]


def faults(language, home):
    counted = subprocess.run(["msgfmt", "--statistics", "-o", os.devnull, catalogues / f"{language}.po"],
                             env=os.environ | {"LC_ALL": "C"}, text=True, stderr=subprocess.PIPE, check=True).stderr
    if "untranslated" in counted or "fuzzy" in counted:
        yield counted.strip()
    invitation = text_marks(language, home)[-1]
    if invitation["text"].endswith("…") or invitation["text"] == "Design one in Orvel" or invitation["lines"] > 3:
        yield f"the invitation reads {invitation['text']!r} on {invitation['lines']} lines"
    portion = text_marks(language, home, "--design", "-", design=PROGRESS)[0]
    if sorted(portion["text"].replace("\u00a0", "").replace("\u202f", "")) != sorted("188%"):
        yield f"the percentage reads {portion['text']!r}"
    if portion["lines"] != 1 or portion["frame"][2] > 64:
        yield f"the percentage doesn't fit its ring: {portion['frame'][2]} points on {portion['lines']} lines"


def main():
    languages = sorted(file.stem for file in catalogues.glob("*.po"))
    built = sorted(file.parents[1].name for file in (build / "share/locale").rglob("orvel.mo"))
    if languages != built:
        sys.exit(f"translations/CMakeLists.txt names {built}, there are {languages}")
    with tempfile.TemporaryDirectory() as home:
        found = [f"{language}: {fault}" for language in languages for fault in faults(language, pathlib.Path(home))]
    if found:
        sys.exit("\n".join(found))
    print(f"{len(languages)} languages are complete")


main()
