#!/usr/bin/env python3
"""The command speaks the person's language to people, and the same as ever to programs.

Usage: sentences.py BUILD_FOLDER
"""
import os
import pathlib
import subprocess
import sys
import tempfile

build = pathlib.Path(sys.argv[1]).resolve()
# Newer versions of gettext translate nothing in C.UTF-8; older systems may have no other locale.
LOCALES = subprocess.run(["locale", "-a"], stdout=subprocess.PIPE, text=True, check=True).stdout.split()
LOCALE = "en_US.UTF-8" if "en_US.utf8" in LOCALES else "C.UTF-8"
ENGLISH, GERMAN, FRENCH, ARABIC, JAPANESE = "", "de", "fr", "ar", "ja"

DESIGN = '{"id":"%s","title":"%s","kind":"note","accentHex":"#FFFFFF","symbol":"flag.fill","primary":"x","createdAt":0}'

# Language, arguments, exit status, what must be printed somewhere.
CASES = [
    (GERMAN, ["--help"], 0, ["Aufruf: orvel COMMAND [OPTION]...", "Optionen:", "Befehle:", "Gibt die Version aus"]),
    (GERMAN, ["help", "set"], 0, ["Ändert Felder eines Entwurfs", "Argumente:", "Zum Beispiel: orvel set @1"]),
    (GERMAN, ["add", "--help"], 0, ["Die letzte Zeile (metric, note oder countdown)"]),
    (JAPANESE, ["add", "--help"], 0, ["--kind metric|progress|", "カードに表示するもの"]),
    (ARABIC, ["list", "--help"], 0, ["يسرد التصاميم المخزّنة"]),
    (GERMAN, ["list"], 0, ["ART", "TITEL", "Erster"]),
    (GERMAN, ["ad"], 2, ['es gibt keinen Befehl „ad“; meinten Sie "add"? (orvel help zählt die Befehle auf)']),
    (GERMAN, ["add", "--kind", "nte"], 2, ["--kind: „nte“: erwartet wird metric, progress, ", " oder ", 'meinten Sie "note"?']),
    (FRENCH, ["show", "@9"], 1, ["il y a les modèles @1 à @3"]),
    (ARABIC, ["show", "@9"], 1, ["توجد التصاميم من"]),
    (JAPANESE, ["show", "@9"], 1, ["デザインは @1 から @3 までです"]),
    (ARABIC, ["check"], 0, ["تُحمّل 3 تصاميم"]),
    (ARABIC, ["check", "one.json"], 0, ["يُحمّل تصميم واحد"]),
    (GERMAN, ["check", "one.json"], 0, ["one.json: 1 Entwurf ist lesbar"]),
    (GERMAN, ["check", "bad.json"], 1, ['bad.json:1:2: Entwurf @1: "id" fehlt']),
    # The language of a drawing isn't the person's.
    (ENGLISH, ["show", "@9"], 1, ["orvel: @9: there are designs @1 to @3"]),
    (ENGLISH, ["render", "@9", "--lang", "de"], 1, ["orvel: @9: there are designs @1 to @3"]),
]

# What programs read is the same in every language.
FOR_PROGRAMS = [["list", "--json"], ["list", "--ids"], ["place", "--json"], ["feed", "list", "--json"],
                ["doctor", "--json"], ["symbols", "cloud"], ["timeline", "--at", "2026-01-31T09:00:00Z"]]


def main():
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        (home / "passwd").write_text(f"user:x:{os.getuid()}:{os.getgid()}::{home}:/bin/sh\n")
        (home / "group").write_text(f"user:x:{os.getgid()}:\n")
        store = home / "Library/Application Support/Orvel"
        store.mkdir(parents=True)
        (store / "widgets.json").write_text(
            "[" + ",".join(DESIGN % each for each in (("A", "Erster"), ("B", "b"), ("C", "c"))) + "]")
        (home / "one.json").write_text("[" + DESIGN % ("A", "a") + "]")
        (home / "bad.json").write_text("[{}]")
        clean = {name: value for name, value in os.environ.items() if not name.startswith(("LC_", "LANG", "XDG_"))}
        wrapped = clean | {"LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": str(home / "passwd"),
                           "NSS_WRAPPER_GROUP": str(home / "group"), "NSS_WRAPPER_DISABLE_DEEPBIND": "1",
                           "ASAN_OPTIONS": "verify_asan_link_order=0", "HOME": folder}

        def run(language, arguments):
            chosen = {"LC_ALL": LOCALE, "LANGUAGE": language} if language else {"LC_ALL": "C"}
            return subprocess.run([build / "orvel", *arguments], env=wrapped | chosen, cwd=home, text=True,
                                  encoding="utf-8", stdin=subprocess.DEVNULL, capture_output=True, check=False)

        failed = 0
        for language, arguments, status, wanted in CASES:
            answer = run(language, arguments)
            printed = answer.stdout + answer.stderr
            for text in wanted:
                if answer.returncode != status or text not in printed:
                    failed += 1
                    print(f"orvel {' '.join(arguments)} ({language}): status {answer.returncode}, no {text!r} in\n{printed}")
        for arguments in FOR_PROGRAMS:
            if run(GERMAN, arguments).stdout != run(ENGLISH, arguments).stdout:
                failed += 1
                print(f"orvel {' '.join(arguments)} isn't the same in German")
        sys.exit(f"{failed} failed" if failed else 0)


main()
