#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
"""typography.py PO-DIR: checks that the translations are typeset as their language is written, keep
placeholders and the like, and differ where they are shown together."""

import pathlib
import re
import sys
import unicodedata
from collections import Counter

import polib

SPACE = "\N{NO-BREAK SPACE}"

# What opens and closes a quotation, and the apostrophe where there is one.
MARKS = {
    "ar": ("«", "»", ""),
    "de": ("„", "“", ""),
    "es": ("«", "»", ""),
    "fr": ("«" + SPACE, SPACE + "»", "’"),
    "ja": ("「", "」", ""),
    "pl": ("„", "”", ""),
    "pt_BR": ("“", "”", ""),
    "ru": ("«", "»", ""),
    "uk": ("«", "»", "’"),
    "zh_CN": ("“", "”", ""),
}
ANY_MARK = re.compile("[\"'`„“”‚‘’«»‹›「」『』]")
QUOTED_IN_ENGLISH = re.compile(r"""(?<!\w)(["'])[^"']+\1(?!\w)""")

# What a text ends with in place of the English mark.
ENDS = {
    "ar": {"?": "؟"},
    "fr": {mark: SPACE + mark for mark in ":?!"},
    "ja": {".": "。", "?": "？", "!": "！"},
    "zh_CN": {".": "。", ":": "：", "?": "？", "!": "！"},
}

NO_TEXT = re.compile(
    r"""<[^>]+> | %\d | %n          # tags and placeholders
    | --[a-z-]+ | \w+\([A-Z_]+\)    # options and calls
    | /(?:etc|usr)(?:/[\w.-]*\w)+ | \*\.\w+
    | \b(?:GECOS|JSON|PNG|UTF-8|[UG]ID)\b""",
    re.VERBOSE,
)


def without_mnemonic(text):
    return re.sub(r"\(&\w\)", "", text).replace("&", "")


def pairs(entry):
    """Each translation with the English text that it stands for, both without mnemonics. A number may
    be said by words, like "one", which msgfmt judges."""
    if not entry.msgid_plural:
        return [(without_mnemonic(entry.msgid), without_mnemonic(entry.msgstr))]
    texts = [entry.msgid_plural, *entry.msgstr_plural.values()]
    english, *translations = (text.replace("%1", "1") for text in texts)
    return [(english, text) for text in translations]


def quotation_faults(language, english, text):
    opening, closing, apostrophe = MARKS[language]
    rest = re.sub(f"{opening}([^{opening}{closing}]*){closing}", r"\1", text)
    if apostrophe:
        rest = re.sub(rf"(?<=\w){apostrophe}(?=\w)", "", rest)
    if ANY_MARK.search(rest):
        yield f"has other quotation marks than {opening}{closing}"
    if len(QUOTED_IN_ENGLISH.findall(english)) > text.count(opening):
        yield f"lacks the quotation marks {opening}{closing}"


def end_faults(language, english, text):
    for mark in ".:…?!":
        own = ENDS.get(language, {}).get(mark, mark)
        if english.rstrip().endswith(mark) != text.rstrip().endswith(own):
            yield f"only one of the two texts ends with {own!r}"


def no_text_faults(english, text):
    expected, actual = Counter(NO_TEXT.findall(english)), Counter(NO_TEXT.findall(text))
    if expected != actual:
        yield f"has {dict(actual - expected)} in place of {dict(expected - actual)}"


def mark_faults(text):
    """Marks of the reading order are added where a text is shown; elsewhere they would be taken for hostile."""
    found = {unicodedata.name(character) for character in text if unicodedata.category(character) == "Cf"}
    found -= {"ZERO WIDTH JOINER", "ZERO WIDTH NON-JOINER"}
    if found:
        yield f"has {', '.join(sorted(found))}"


def entry_faults(language, catalogue):
    for entry in catalogue:
        for english, text in pairs(entry):
            found = [
                *quotation_faults(language, english, text),
                *end_faults(language, english, text),
                *no_text_faults(english, text),
                *mark_faults(text),
            ]
            yield from (f"{text!r} {fault}" for fault in found)


def filter_faults(catalogue):
    """The entries of a filter are those of one list."""
    counts = Counter(entry.msgstr for entry in catalogue if entry.msgctxt == "filter")
    return [f"{text!r} is {count} entries of a filter" for text, count in counts.items() if count > 1]


def main(directory):
    files = sorted(pathlib.Path(directory).glob("*/*.po"))
    found = []
    for file in files:
        catalogue = polib.pofile(str(file))
        faults = [*entry_faults(file.parent.name, catalogue), *filter_faults(catalogue)]
        found += (f"{file}: {fault}" for fault in faults)
    print(*found, sep="\n")
    return 1 if found or {file.parent.name for file in files} != MARKS.keys() else 0


sys.exit(main(*sys.argv[1:]))
