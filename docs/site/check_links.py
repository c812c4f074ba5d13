#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a page of a site refers to a file, or a place in a page, that is not there.

usage: check_links.py SITE
"""
import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """What a page refers to, and the places in it."""

    def __init__(self, path):
        super().__init__()
        self.references = set()
        self.places = set()
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src", "data") and value:
                self.references.add(value)
            elif name in ("id", "name"):
                self.places.add(value)


def main():
    site = pathlib.Path(sys.argv[1])
    pages = {path.name: Page(path) for path in site.glob("*.html")}
    broken = {}
    for name, page in sorted(pages.items()):
        for reference in sorted(page.references):
            target = urllib.parse.urlparse(reference)
            if target.scheme or target.netloc:
                continue
            file = urllib.parse.unquote(target.path) or name
            known = pages.get(file)
            if not (site / file).exists() or (known and target.fragment and target.fragment not in known.places):
                broken.setdefault(reference, name)
    for reference, name in broken.items():
        print(f"{name}: {reference} leads nowhere", file=sys.stderr)
    return 1 if broken or not pages else 0


sys.exit(main())
