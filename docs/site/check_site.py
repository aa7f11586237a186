#!/usr/bin/env python3
"""Checks a site as a browser would meet it: each link to another page, place or file of the site leads somewhere, and no
page loads anything from the network. A link that a reader follows may lead out of the site.

Usage: check_site.py HTML-DIRECTORY
"""
import html.parser
import pathlib
import re
import sys
import urllib.parse

# What a browser loads without being asked, by element and attribute. rel decides for <link>.
LOADED = {("script", "src"), ("img", "src"), ("img", "srcset"), ("source", "src"), ("source", "srcset"), ("iframe", "src"),
          ("embed", "src"), ("object", "data"), ("video", "src"), ("video", "poster"), ("audio", "src"), ("track", "src"),
          ("link", "href"), ("use", "href"), ("image", "href"), ("base", "href"), ("form", "action"), ("input", "src")}
REMOTE = re.compile(r"\s*(?:(?!data:)[a-zA-Z][a-zA-Z0-9+.-]*:|//)")
LOADED_BY_STYLE = re.compile(r"""(?:url\(\s*|@import\s+(?:url\(\s*)?)["']?([^"')\s;]+)""")
# A script that asks the network for something names where, in one of these calls.
LOADED_BY_SCRIPT = re.compile(
    r"""(?:fetch|import|importScripts|WebSocket|EventSource|sendBeacon|\.open\([^()]{0,20},)\s*\(?\s*["'`]([^"'`]+)""")


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.places, self.links, self.loaded, self.within = set(), [], [], None
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        self.within = tag
        for name, value in attributes:
            if value is None:
                continue
            if name == "id" or (tag == "a" and name == "name"):
                self.places.add(value)
            elif name == "style":
                self.loaded += LOADED_BY_STYLE.findall(value)
            elif (tag, name) in LOADED:
                self.loaded += [part.split()[0] for part in value.split(",") if part.strip()] if name == "srcset" else [value]
                self.links.append(value)
            elif tag == "a" and name == "href":
                self.links.append(value)

    def handle_endtag(self, tag):
        self.within = None

    def handle_data(self, data):
        if self.within == "style":
            self.loaded += LOADED_BY_STYLE.findall(data)
        elif self.within == "script":
            self.loaded += LOADED_BY_SCRIPT.findall(data)


def loaded_by_file(path):
    if path.suffix in (".css", ".svg"):
        return LOADED_BY_STYLE.findall(path.read_text()) + (Page(path.read_text()).loaded if path.suffix == ".svg" else [])
    return LOADED_BY_SCRIPT.findall(path.read_text()) if path.suffix == ".js" else []


def faults_of(site):
    pages = {path: Page(path.read_text()) for path in sorted(site.rglob("*.html"))}
    if not pages:
        yield f"there is no page in {site}"
    for path, page in pages.items():
        name = path.relative_to(site)
        for address in page.loaded:
            if REMOTE.match(address):
                yield f"{name} loads {address}"
        for link in page.links:
            if REMOTE.match(link) or link.startswith("data:"):
                continue
            place = urllib.parse.urlsplit(link)
            target = (path.parent / urllib.parse.unquote(place.path)).resolve() if place.path else path
            if not target.exists() or not target.is_relative_to(site):
                yield f"{name} has a dead link to {link}"
            elif place.fragment and target in pages and urllib.parse.unquote(place.fragment) not in pages[target].places:
                yield f"{name} has a link to {link}, and there is no such place"
    for path in sorted(site.rglob("*")):
        for address in loaded_by_file(path):
            if REMOTE.match(address):
                yield f"{path.relative_to(site)} loads {address}"


def main():
    faults = list(faults_of(pathlib.Path(sys.argv[1]).resolve()))
    for fault in faults:
        print(f"docs: {fault}", file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
