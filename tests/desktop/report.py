"""The results as a table of docs/desktops.md, between two marks; what stands around it is written by hand."""
import datetime

START, END = "<!-- scripts/check-desktops writes from here -->", "<!-- to here -->"
CELLS = {"yes": "✓", "none": "–", "no": "**no**", "blurred": "✓ (blurred)"}


def earlier_rows(text):
    """The rows that the page has now, by server: those of servers that this run leaves out are kept."""
    lines = text.partition(START)[2].partition(END)[0].splitlines()
    rows = [line for line in lines if line.startswith("| ")][1:]
    return {row.split("|")[1].strip(): row for row in rows}


def row(server, situations, result):
    cells = [server.name, server.version(), datetime.date.today().isoformat(),
             *(CELLS[result[name]] for name in situations)]
    return "| " + " | ".join(cells) + " |"


def reasons(servers):
    for server in servers.values():
        for name, why in {**server.cannot, **server.blurred, **server.lacks}.items():
            yield f"- {server.name}, {name}: {why}."


def write_report(file, servers, situations, results):
    text = file.read_text(encoding="utf-8")
    rows = earlier_rows(text)
    rows.update({name: row(servers[name], situations, result) for name, result in results.items()})
    heads = ["desktop", "version", "seen on", *situations]
    lines = [START, "", "| " + " | ".join(heads) + " |", "|" + "---|" * len(heads),
             *(rows[name] for name in servers if name in rows), "", *reasons(servers), "", END]
    before, _, after = text.partition(START)
    file.write_text(before + "\n".join(lines) + after.partition(END)[2], encoding="utf-8")
