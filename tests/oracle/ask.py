#!/usr/bin/env python3
"""Asks the program's code and Python the same questions: about every character, and about every time zone.

Upper case, canonical decomposition and equivalence against str.upper and unicodedata; countdowns to a local midnight
against zoneinfo, around every change of every zone's clocks. Fails when an answer differs.
Usage: ask.py BUILD_FOLDER
"""
import bisect
import itertools
import pathlib
import random
import subprocess
import sys
import unicodedata
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


# Texts

def digits(text):
    return text.encode().hex()


def nfd(text):
    return unicodedata.normalize("NFD", text)


every = [chr(c) for c in range(sys.maxunicode + 1) if not 0xD800 <= c <= 0xDFFF]
# Python and the text library may be of different versions of Unicode. They can agree only on texts of characters that
# are in both, or in neither.
known = {c for c, answer in zip(every, ask(f"assigned\t{digits(c)}" for c in every), strict=True)
         if (answer == "1") == (unicodedata.category(c) != "Cn")}
print(f"Unicode {unicodedata.unidata_version}: {len(every):,} code points, of which {len(every) - len(known)} differ in "
      "being assigned and are left out")


def mappings(texts):
    for text in texts:
        for word, mapped in ("upper", text.upper()), ("decomposed", nfd(text)):
            if known.issuperset(text + mapped):
                yield f"{word}\t{digits(text)}", digits(mapped)


# Characters that decompose, canonically or only for compatibility, the parts of Hangul syllables, and marks.
starters = [c for c in every if c in known and (unicodedata.normalize("NFKD", c) != c or 0x1100 <= ord(c) < 0x1200)]
marks = [c for c in every if c in known and unicodedata.combining(c)]
texts = ["".join(chance.choice(chance.choice((starters, marks, marks))) for _ in range(chance.randint(1, 12)))
         for _ in range(100_000)]


def equivalences():
    """Each text and its like: composed or not, with up to two neighbours swapped, or one character gone."""
    for text in texts:
        other = list(unicodedata.normalize(chance.choice(("NFC", "NFD", "NFKC")), text))
        for _ in range(chance.randint(0, 2)):
            i = chance.randrange(len(other))
            other[i:i + 2] = reversed(other[i:i + 2])
        if chance.random() < 0.1:
            del other[chance.randrange(len(other))]
        other = "".join(other)
        yield f"equivalent\t{digits(text)}\t{digits(other)}", str(int(nfd(text) == nfd(other)))


pairs = list(equivalences())
compare("upper case and decomposition of every code point", mappings(every))
compare("the same of random texts", mappings(texts))
compare(f"equivalence, {sum(answer == '1' for _, answer in pairs):,} times given", iter(pairs))


# Countdowns

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


def day_of(year):
    return date(year, 1, 1).toordinal()


data = pathlib.Path("/usr/share/zoneinfo")
zones = {(data / name).read_bytes(): name for name in sorted(zoneinfo.available_timezones())}  # links once
countdowns = [(f"remaining\tUTC\t0{target}", "—\t") for target in ("", "\t", "\t2026-02-29 x")]
count = 0
for name in zones.values():
    zone = zoneinfo.ZoneInfo(name)
    days = {date.fromordinal(chance.randrange(day_of(1900), day_of(2100))) for _ in range(10)}
    for change in changes(zone, (day_of(2020) - day_of(1970)) * DAY, (day_of(2036) - day_of(1970)) * DAY, DAY // 2):
        count += 1
        days.update(local(change, zone).date() + timedelta(n) for n in (-1, 0, 1))
    for day in sorted(days):
        for text, instant, times in targets(day, zone):
            countdowns += [(f"remaining\t{name}\t{instant - ahead}\t{text}", left(instant, instant - ahead))
                           for ahead in times]
chance.shuffle(countdowns)  # so the zone changes, and the clock goes back and forth
compare(f"countdowns in {len(zones)} zones, {count:,} changes", iter(countdowns))

for disagreement in disagreements[:10]:
    print(disagreement)
sys.exit(f"{len(disagreements):,} disagreements" if disagreements else 0)
