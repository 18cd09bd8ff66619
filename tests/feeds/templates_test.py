#!/usr/bin/env python3
"""Each template becomes a feed and a design, from recorded input: programs and files that stand in for the machine's.
Usage: templates_test.py BUILD_FOLDER"""
import json
import os
import pathlib
import stat
import subprocess
import sys
import tempfile

build = pathlib.Path(sys.argv[1]).resolve()
document = pathlib.Path(__file__).resolve().parents[2] / "docs" / "feeds.md"
work = pathlib.Path(tempfile.mkdtemp())
WEATHER = '{"latitude":52.5,"current_units":{"temperature_2m":"°C"},"current":{"time":"2026-01-31T09:00",' \
          '"interval":900,"temperature_2m":%s,"weather_code":%s}}'
CALENDAR = """BEGIN:VCALENDAR\r
BEGIN:VEVENT\r
DTSTART;TZID=Europe/Berlin:20250106T093000\r
RRULE:FREQ=WEEKLY;INTERVAL=2\r
SUMMARY:Two-weekly\\, long \r
 meeting\r
END:VEVENT\r
BEGIN:VEVENT\r
DTSTART;VALUE=DATE:20260220\r
SUMMARY:Fair\r
END:VEVENT\r
BEGIN:VEVENT\r
DTSTART:20260202T100000Z\r
RRULE:FREQ=DAILY;UNTIL=20260203T000000Z\r
SUMMARY:Over\r
END:VEVENT\r
END:VCALENDAR\r
"""
APT = """Inst base-files [12.4] (12.4+deb12u5 Debian:12.5/stable [amd64])
Inst libssl3 [3.0.11-1] (3.0.13-1 Debian-Security:12/stable-security [amd64]) []
Inst linux-image (6.1.76-1 Debian-Security:12/stable-security [amd64])
Conf base-files (12.4+deb12u5 Debian:12.5/stable [amd64])
"""
GIT = """case "$*" in
    "-C %s log "*) printf '%%s\\n' a1 b2 a1 ;;
    *for-each-ref*) printf '%%s\\n' '[ahead 2]' '' '[behind 1]' '[ahead 1, behind 3]' ;;
esac""" % work
DF = "Filesystem 1024-blocks Used Available Capacity Mounted on\n/dev/sda1 100 38 62 38% /"

# A template, its arguments, what programs print (or a script), what files hold, and the design's fields. A text instead
# of those is why the first run fails.
CASES = [
    ("disk", ["/"], {"df": DF}, {}, {"title": "Disk", "progress": 0.38}),
    ("disk", ["/nowhere"], {"df": "!echo 'df: /nowhere: No such file' >&2"}, {}, "it printed nothing"),
    ("memory", ["meminfo"], {}, {"meminfo": "MemTotal: 8000 kB\nMemFree: 10 kB\nMemAvailable: 6000 kB\n"},
     {"progress": 0.25}),
    ("memory", ["meminfo"], {}, {"meminfo": ""}, "exit status 1"),
    ("load", ["loadavg"], {"nproc": "4"}, {"loadavg": "0.52 0.58 0.59 1/257 4711\n"},
     {"primary": "0.52", "secondary": "0.58, 0.59 of 4"}),
    ("battery", ["."], {}, {"AC/type": "Mains\n", "B0/type": "Battery\n", "B0/scope": "Device\n", "B0/capacity": "9\n",
                            "B1/type": "Battery\n", "B1/capacity": "71\n", "B1/status": "Charging\n"},
     {"progress": 0.71, "symbol": "bolt.fill"}),
    ("battery", ["."], {}, {"AC/type": "Mains\n"}, "exit status 1: there is no battery"),
    ("uptime", ["uptime"], {}, {"uptime": "93784.25 300.1\n"}, {"primary": "1 d 2 h"}),
    ("uptime", ["uptime"], {}, {"uptime": "5400.0 300.1\n"}, {"primary": "1 h 30 min"}),
    ("updates", [], {"apt-get": APT}, {}, {"primary": "2", "secondary": "1 for security"}),
    ("updates", [], {"apt-get": "Reading package lists..."}, {}, {"primary": "0", "secondary": "up to date"}),
    ("mail", ["."], {}, {"new/1": "", "new/2": "", "cur/3:2,": "", "cur/4:2,RS": "", "cur/5:2,R": ""},
     {"primary": "4", "secondary": "2 new"}),
    ("mail", ["missing"], {}, {}, "exit status 2"),
    ("git", ["."], {"git": "!" + GIT}, {}, {"primary": "2", "secondary": "2 branches ahead"}),
    ("web", ["https://example.org"], {"curl": "404 0.1234"}, {}, {"primary": "404", "secondary": "123 ms"}),
    ("web", ["https://example.org"], {"curl": "!echo 'curl: (6) no such host' >&2; exit 6"}, {},
     "exit status 6: curl: (6) no such host"),
    ("json", ["https://example.org/a", "rates.0.EUR"], {"curl": '{"rates":[{"EUR":1.0845}]}'}, {},
     {"primary": "1.0845"}),
    ("json", ["a.json", "name"], {}, {"a.json": '{"name": "é\\n=x"}'}, {"primary": "é\n=x"}),
    ("json", ["a.json", "rates.USD"], {}, {"a.json": '{"rates": {}}'}, "exit status 1: there is no 'USD' in {}"),
    ("calendar", ["a.ics", "2026-02-10T12:00:00+01:00"], {}, {"a.ics": CALENDAR},
     {"title": "Two-weekly, long meeting", "targetISO8601": "2026-02-16T09:30:00+01:00"}),
    ("calendar", ["a.ics", "2026-02-16T09:30:01+01:00"], {}, {"a.ics": CALENDAR},
     {"title": "Fair", "targetISO8601": "2026-02-20T00:00:00+01:00"}),
    ("calendar", ["a.ics", "2026-02-16T00:00:00"], {}, {"a.ics": "BEGIN:VCALENDAR\nEND:VCALENDAR\n"},
     {"title": "No event ahead"}),
    ("weather", ["52.5", "-13.4"], {"curl": WEATHER % ("-3.6", "71")}, {},
     {"primary": "-4 °C", "secondary": "snow", "symbol": "cloud.snow.fill"}),
    ("weather", ["52.5", "13.4"], {"curl": WEATHER % ("21.4", "0")}, {}, {"primary": "21 °C", "secondary": "clear"}),
    ("weather", ["52.5", "13.4"], {"curl": '{"error":true}'}, {}, "exit status 1: the answer has no temperature"),
    # New on 2026-01-18, 19:52 UTC; full on 2026-02-01, 22:09 UTC.
    ("moon", ["1768765920"], {}, {}, {"primary": "0%", "secondary": "new moon"}),
    ("moon", ["1769983740"], {}, {}, {"primary": "100%", "secondary": "full moon"}),
    ("moon", ["1769385600"], {}, {}, {"secondary": "first quarter"}),
    ("year", ["2028-12-31"], {}, {}, {"title": "2028", "progress": 365 / 366}),
    ("year", ["2026-01-01"], {}, {}, {"title": "2026", "progress": 0}),
]


def orvel(*arguments, **more):
    return subprocess.run([build / "orvel", *arguments], capture_output=True, text=True, cwd=work, timeout=120, **more)


def run(number, template, arguments, programs, files, wanted):
    home = work / f"home{number}"
    bin_ = work / f"bin{number}"
    for folder in (home, bin_, home / "runtime"):
        folder.mkdir()
    (home / "passwd").write_text(f"user:x:{os.getuid()}:{os.getgid()}::{home}:/bin/sh\n")
    (home / "group").write_text(f"user:x:{os.getgid()}:\n")
    for name, text in programs.items():
        (bin_ / f"{name}.out").write_text(text + "\n")
        (bin_ / name).write_text("#!/bin/sh\n" + (text[1:] if text[0] == "!" else f"cat '{bin_}/{name}.out'") + "\n")
        (bin_ / name).chmod(stat.S_IRWXU)
    for name, text in files.items():
        (home / name).parent.mkdir(exist_ok=True)
        (home / name).write_text(text)
    for folder in ("new", "cur"):
        if any(name.startswith("new/") for name in files):
            (home / folder).mkdir(exist_ok=True)
    environment = {**os.environ, "LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": str(home / "passwd"),
                   "NSS_WRAPPER_GROUP": str(home / "group"), "XDG_RUNTIME_DIR": str(home / "runtime"),
                   "XDG_CONFIG_HOME": "", "XDG_STATE_HOME": "", "TZ": "Europe/Berlin",
                   "ASAN_OPTIONS": "verify_asan_link_order=0", "PATH": f"{bin_}:{os.environ['PATH']}"}
    given = [str(home / each) if (home / each).exists() else each for each in arguments]
    if template == "git":
        given = [str(work)]
    said = orvel("feed", "new", template, *given, env=environment)
    what = f"{template} {arguments}: {said.stderr}"
    assert said.returncode == 0, what
    if isinstance(wanted, str):
        assert f"its first run failed: {wanted}" in said.stderr, what
        return
    assert "first run failed" not in said.stderr, what
    design, = json.loads(orvel("list", "--json", env=environment).stdout)
    for field, value in wanted.items():
        assert design.get(field) == value, f"{what}: {field} is {design.get(field)!r}, not {value!r}"
    warned = orvel("check", env=environment)
    assert "warning" not in warned.stdout + warned.stderr, what + warned.stdout + warned.stderr


names = [line.split()[0] for line in orvel("feed", "new").stdout.splitlines()[1:]]
scripts = sorted(path.name for path in (build / "feed-templates").iterdir())
assert sorted(names) == scripts, f"the table has {sorted(names)}, the folder {scripts}"
for name in names:
    assert any(case[0] == name and not isinstance(case[4], str) for case in CASES), f"{name} has no case in this test"
    assert f"| `{name}`" in document.read_text(encoding="utf-8"), f"{name} has no row in {document.name}"
for number, case in enumerate(CASES):
    run(number, *case)
subprocess.run(["rm", "-rf", work], check=True)
print(f"{len(names)} templates, {len(CASES)} recordings: all well")
