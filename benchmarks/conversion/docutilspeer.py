#!/usr/bin/python3
"""Converts by docutils what stands on standard input: a line is a JSON array of texts. Answers with a line: the seconds
that the conversion took."""
import json
import sys
import time

from docutils.core import publish_parts

SETTINGS = {"report_level": 5, "halt_level": 5, "file_insertion_enabled": False, "raw_enabled": False}

for line in sys.stdin:
    texts = json.loads(line)
    start = time.perf_counter()
    for text in texts:
        publish_parts(text, writer_name="html", settings_overrides=SETTINGS)
    print(time.perf_counter() - start, flush=True)
