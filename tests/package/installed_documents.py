#!/usr/bin/env python3
"""Every link of an installed document leads to a file that is installed with it, and to a heading that the file has.

Usage: installed_documents.py BUILD_FOLDER
"""
import pathlib
import re
import subprocess
import sys
import tempfile


def anchors(document):
    """The headings' names in links, as the usual readers of Markdown make them."""
    headings = re.findall(r"^#+ (.*)$", document.read_text(), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def broken_links(document, folder):
    for link in re.findall(r"\]\(([^)]*)\)", document.read_text()):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, anchor = link.partition("#")
        target = (document.parent / path).resolve() if path else document
        if not target.is_relative_to(folder) or not target.is_file():
            yield f"{document.relative_to(folder)}: {link}: that file isn't installed"
        elif anchor and anchor not in anchors(target):
            yield f"{document.relative_to(folder)}: {link}: the file has no such heading"


def main():
    with tempfile.TemporaryDirectory() as work:
        prefix = pathlib.Path(work).resolve()
        subprocess.run(["cmake", "--install", sys.argv[1], "--prefix", prefix, "--component", "program"],
                       check=True, stdout=subprocess.DEVNULL)
        folder = prefix / "share/doc/orvel"
        documents = sorted(folder.rglob("*.md"))
        if folder / "README.md" not in documents:
            sys.exit("no README is installed")
        broken = [fault for document in documents for fault in broken_links(document, folder)]
    if broken:
        sys.exit("\n".join(broken))
    print(f"{len(documents)} installed documents: every link leads somewhere")


main()
