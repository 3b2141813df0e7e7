#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
"""librarytexts.py PO-DIR DATA-DIR LINKED LOADED MODULE: whether the library shows each of its texts in
every language, and each translation is seen.

LINKED, and LOADED given MODULE, print all texts of the library; DATA-DIR has the translations. KI18n
must not warn of how the library uses it."""

import json
import os
import pathlib
import re
import subprocess
import sys

import polib

# What is the same in every language: technical column headers and the test's own accounts.
UNTRANSLATED = {"UID", "GID", "root", "zoe", "0", "1000"}

# The sources of the texts that are translated when the library is loaded.
AT_LOAD = ("limits/limitscatalogue.cpp", "")


def shown_texts(command, data, language):
    environment = os.environ | {"LANGUAGE": language, "XDG_DATA_DIRS": f"{data}:/usr/share"}
    run = subprocess.run(command, env=environment, capture_output=True, text=True, check=True)
    warnings = [f"{language}: {line}" for line in run.stderr.splitlines() if "kf.i18n" in line]
    return json.loads(run.stdout), warnings


def matches(message, text):
    return re.fullmatch(re.sub(r"%\d", ".+", re.escape(message)), text, re.DOTALL)


def faults(catalogue, english, translated):
    if len(english) != len(translated):
        yield f"{len(english)} texts in English, {len(translated)} translated"
    seen = set()
    for text, translation in zip(english, translated):
        entries = [entry for entry in catalogue if matches(entry.msgid, text)]
        fitting = {entry for entry in entries if matches(entry.msgstr, translation)}
        if not entries and (text not in UNTRANSLATED or text != translation):
            yield f"not in the catalogue: {text!r}, {translation!r}"
        if entries and not fitting:
            yield f"not translated: {text!r}, {translation!r}"
        seen |= fitting
    for entry in catalogue:
        if entry not in seen:
            yield f"never seen: {entry.msgid!r}"


def untranslated(entry):
    return polib.POEntry(msgctxt=entry.msgctxt, msgid=entry.msgid, msgstr=entry.msgid, occurrences=entry.occurrences)


def main(po, data, linked, loaded, module):
    english, found = shown_texts([loaded, module], data, "en_US")
    files = sorted(pathlib.Path(po).glob("*/ormel_kcm_users.po"))
    for file in files:
        language = file.parent.name
        catalogue = list(polib.pofile(str(file)))
        translated, warnings = shown_texts([loaded, module], data, language)
        found += warnings
        found += faults(catalogue, english, translated)
        # A program that is linked to the library has no language yet when the limits are described.
        linked_catalogue = [untranslated(entry) if AT_LOAD in entry.occurrences else entry for entry in catalogue]
        translated, warnings = shown_texts([linked], data, language)
        found += warnings
        found += faults(linked_catalogue, english, translated)
    print(*found, sep="\n")
    return 1 if found or not files else 0


sys.exit(main(*sys.argv[1:]))
