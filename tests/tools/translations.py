#!/usr/bin/env python3
"""Every catalogue translates every text with its values, in as many plural forms as the language has; the template has
every sentence of the sources; and what a language puts on the smallest card is wholly shown there.

Usage: translations.py BUILD_FOLDER
"""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

build = pathlib.Path(sys.argv[1]).resolve()
catalogues = pathlib.Path(__file__).resolve().parents[2] / "translations"
# By Unicode's CLDR; where it lists a form for fractions or millions alone, without that.
PLURAL_FORMS = {"ar": 6, "de": 2, "es": 2, "fr": 2, "ja": 1, "nl": 2, "pl": 3, "pt_BR": 2, "ru": 3, "zh_CN": 1}
NO_NEWS = "no news since {0}"
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


def entries(file):
    """Pairs of English and translation, plural forms each for itself; the header first."""
    plain = subprocess.run(["msgcat", "--no-wrap", file], text=True, stdout=subprocess.PIPE, check=True).stdout
    for entry in plain.split("\n\n"):
        texts = re.findall(r'^(msg\w+(?:\[\d\])?) "(.*)"$', entry, re.M)
        english = [text for name, text in texts if name.startswith("msgid")]
        for name, text in texts:
            if name.startswith("msgstr"):
                yield english, text


def directives(text):
    return set(re.findall(r"\{\d\}|%\w+", text))


def catalogue_faults(file):
    """What is wrong with it beside its template, that msgfmt takes."""
    template = next(file.parent.glob("*.pot"))
    compared = subprocess.run(["msgcmp", file, template], env=os.environ | {"LC_ALL": "C"}, text=True,
                              stderr=subprocess.PIPE, check=False)
    if compared.returncode:
        yield compared.stderr.strip()
    forms = re.search(r"nplurals=(\d)", file.read_text())
    if forms and int(forms[1]) != PLURAL_FORMS.get(file.stem):
        yield f"{forms[1]} plural forms; the table here says {PLURAL_FORMS.get(file.stem)}"
    for english, text in list(entries(file))[1:]:
        # A form for one or two things may say the number as a word.
        least = directives(english[-1]) - ({"{0}"} if len(english) > 1 else set())
        if not least <= directives(text) <= directives(english[-1]):
            yield f"{text!r} has other values than {english[-1]!r}"


def template_faults():
    def sentences(text):
        return set(re.findall(r"^msgid.*", text, re.M))

    folder = catalogues / "command"
    found = subprocess.run([folder / "extract"], text=True, stdout=subprocess.PIPE, check=True).stdout
    kept = (folder / "orvel-command.pot").read_text()
    for sentence in sorted(sentences(found) ^ sentences(kept) - {'msgid ""'}):
        yield f"orvel-command.pot and the sources differ in {sentence}; cmake --build --preset dev --target pot"


def faults(language, home):
    translated = dict((english[0], text) for english, text in entries(catalogues / f"{language}.po"))
    invitation = text_marks(language, home)[-1]
    if invitation["text"].endswith("…") or invitation["text"] == "Design one in Orvel" or invitation["lines"] > 3:
        yield f"the invitation reads {invitation['text']!r} on {invitation['lines']} lines"
    portion = text_marks(language, home, "--design", "-", design=PROGRESS)[0]
    if sorted(portion["text"].replace("\u00a0", "").replace("\u202f", "")) != sorted("188%"):
        yield f"the percentage reads {portion['text']!r}"
    if portion["lines"] != 1 or portion["frame"][2] > 64:
        yield f"the percentage doesn't fit its ring: {portion['frame'][2]} points on {portion['lines']} lines"
    line = translated[NO_NEWS].replace("{0}", "14:02")
    shown = text_marks(language, home, "--design", "-",
                       design=json.dumps({"title": "", "kind": "metric", "primary": "1", "secondary": line}))
    if line not in [mark["text"] for mark in shown]:
        yield f"the small card cuts {line!r}"


def main():
    found = list(template_faults())
    for folder, domain in ((catalogues, "orvel"), (catalogues / "command", "orvel-command")):
        files = sorted(folder.glob("*.po"))
        built = sorted(file.parents[1].name for file in (build / "share/locale").rglob(f"{domain}.mo"))
        if [file.stem for file in files] != built:
            sys.exit(f"translations/CMakeLists.txt names {built} for {domain}, there are {files}")
        found += [f"{file}: {fault}" for file in files for fault in catalogue_faults(file)]
    languages = sorted(file.stem for file in catalogues.glob("*.po"))
    with tempfile.TemporaryDirectory() as home:
        found += [f"{language}: {fault}" for language in languages for fault in faults(language, pathlib.Path(home))]
    if found:
        sys.exit("\n".join(found))
    print(f"{len(languages)} languages are complete")


main()
