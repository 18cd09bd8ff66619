#!/usr/bin/env python3
"""Asks the program's code and Python the same questions about every time zone: countdowns to a local midnight against
zoneinfo, around every change of every zone's clocks. Fails when an answer differs.
Usage: ask.py BUILD_FOLDER
"""
import bisect
import itertools
import pathlib
import random
import subprocess
import sys
import zoneinfo
from datetime import date, datetime, time, timedelta, timezone

program = pathlib.Path(sys.argv[1]) / "tests/oracle_answers"
chance = random.Random(1)
disagreements = []


def ask(questions):
    asked = subprocess.run([program], input="\n".join(questions), stdout=subprocess.PIPE, encoding="utf-8", check=True)
    return asked.stdout.split("\n")[:-1]


def compare(topic, questions):
    """Questions come with the answers that Python gives."""
    count = 0
    for batch in iter(lambda: list(itertools.islice(questions, 100_000)), []):
        count += len(batch)
        for (question, expected), answer in zip(batch, ask(question for question, _ in batch), strict=True):
            if answer != expected:
                disagreements.append(f"{question!r}: {answer!r}, by Python {expected!r}")
    print(f"{topic}: {count:,} answers")


HOUR, DAY = 3600, 86400


def local(instant, zone):
    return datetime.fromtimestamp(instant, zone)


def changes(zone, first, last, step):
    """The first second of each new offset."""
    def offset(at):
        return local(at, zone).utcoffset()

    for (before, old), (after, new) in itertools.pairwise((at, offset(at)) for at in range(first, last + step, step)):
        if old != new:
            yield before + bisect.bisect_left(range(before, after), True, key=lambda at: offset(at) != old)


def midnight(day, zone):
    """The instant at which the day begins: the first of two midnights, or the change that skips it."""
    wanted = datetime.combine(day, time(), zone)
    instant = int(wanted.timestamp())
    if local(instant, zone).replace(tzinfo=None) == wanted.replace(tzinfo=None):
        return instant
    return list(changes(zone, instant - 26 * HOUR, instant, HOUR))[-1]


def left(target, now):
    seconds = target - now
    if seconds <= 0:
        return "Now\t"
    count, unit = (seconds // DAY, "day") if seconds >= DAY else (max(seconds // HOUR, 1), "hour")
    return f"{count}\t{unit}" + "s" * (count > 1)


bounds = [bound + second for bound in (HOUR, 2 * HOUR, DAY, 2 * DAY) for second in (-1, 0)]


def targets(day, zone):
    """Texts with the instants they mean, and how long before these to ask."""
    start = midnight(day, zone)
    yield f"{day}" + chance.choice((" x", "T18:30", ".", "日")), start, [0, 1, *chance.sample(bounds, 2)]
    utc = datetime.combine(day, time(), timezone.utc)
    yield f"{day}", int(utc.timestamp()), [chance.choice((0, 1))]
    at = utc.replace(second=chance.randrange(60), tzinfo=timezone(timedelta(minutes=chance.randrange(-1439, 1440))))
    yield at.isoformat(), int(at.timestamp()), [chance.choice((0, 1))]


# No midnight, two an hour apart, two of which the first is a minute long, and no day at all, in some zone each.
strange_days = {date(2018, 11, 4), date(2018, 2, 18), date(2010, 11, 7), date(2011, 12, 30)}


def day_of(year):
    return date(year, 1, 1).toordinal()


data = pathlib.Path("/usr/share/zoneinfo")
zones = {(data / name).read_bytes(): name for name in sorted(zoneinfo.available_timezones())}  # links once
countdowns = [(f"UTC\t0{target}", "—\t") for target in ("", "\t", "\t2026-02-29 x")]
count = 0
for name in zones.values():
    zone = zoneinfo.ZoneInfo(name)
    days = {date.fromordinal(chance.randrange(day_of(1900), day_of(2100))) for _ in range(10)} | strange_days
    for change in changes(zone, (day_of(2020) - day_of(1970)) * DAY, (day_of(2036) - day_of(1970)) * DAY, DAY // 2):
        count += 1
        days.update(local(change, zone).date() + timedelta(n) for n in (-1, 0, 1))
    for day in sorted(days):
        for text, instant, times in targets(day, zone):
            countdowns += [(f"{name}\t{instant - ahead}\t{text}", left(instant, instant - ahead))
                           for ahead in times]
chance.shuffle(countdowns)  # so the zone changes, and the clock goes back and forth
compare(f"countdowns in {len(zones)} zones, {count:,} changes", iter(countdowns))

for disagreement in disagreements[:10]:
    print(disagreement)
sys.exit(f"{len(disagreements):,} disagreements" if disagreements else 0)
