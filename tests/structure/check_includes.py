#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Checks who includes whom: folders from the left to the right only, and no circle of classes.

usage: check_includes.py SOURCE_DIR
"""
import collections
import os
import re
import sys

# Each house: its roots, and its folders from left to right. Folders of one step stand beside each
# other and do not include each other.
HOUSES = [
    (["platform", "src"],
     [["basetools"], ["styledctl"], ["device"], ["model"], ["reading"], ["tree"],
      ["lut", "ccm", "region", "selector", "userset", "changes"], ["pages"], ["main"], ["api"]]),
    (["hosts/camera"],
     [["description"], ["cameras"], ["demo", "faults"], ["steps"], ["program"]]),
]
# "folder/File.cpp includes folder/Header.h": the reason. None at present.
EXCEPTIONS = {}


def source_files(roots):
    """Gives (name below the root without its ending, path) of each C++ file."""
    for root in roots:
        for directory, _, names in os.walk(root):
            for name in names:
                stem, ending = os.path.splitext(name)
                if ending in (".h", ".cpp"):
                    place = os.path.relpath(os.path.join(directory, stem), root)
                    yield place, os.path.join(directory, name)


def class_of(place, headers):
    """The class that a file belongs to: that of its own header, else of the longest that begins its name."""
    if place in headers:
        return place
    return max((h for h in headers if place.startswith(h)), key=len, default=place)


def circles(graph):
    """The groups of classes that include each other, by Tarjan's walk without recursion."""
    index, low, stack, found = {}, {}, [], []
    for start in sorted(graph):
        if start in index:
            continue
        work = [(start, iter(sorted(graph[start])))]
        index[start] = low[start] = len(index)
        stack.append(start)
        while work:
            node, successors = work[-1]
            for other in successors:
                if other not in index:
                    index[other] = low[other] = len(index)
                    stack.append(other)
                    work.append((other, iter(sorted(graph.get(other, ())))))
                    break
                if other in stack:
                    low[node] = min(low[node], index[other])
            else:
                work.pop()
                if work:
                    parent = work[-1][0]
                    low[parent] = min(low[parent], low[node])
                if low[node] == index[node]:
                    group = stack[stack.index(node):]
                    del stack[stack.index(node):]
                    if len(group) > 1:
                        found.append(sorted(group))
    return found


def check(roots, order):
    files = list(source_files(roots))
    headers = {place for place, path in files if path.endswith(".h")}
    steps = {folder: step for step, folders in enumerate(order) for folder in folders}
    graph, faults, checked = collections.defaultdict(set), [], 0
    for place, path in files:
        folder = place.split("/")[0]
        if folder == "resources":
            continue
        if folder not in steps:
            faults.append(f"{path} lies in a folder that has no place in the order")
            continue
        own = class_of(place, headers)
        with open(path, encoding="utf-8") as text:
            included = re.findall(r'^#include "([^"]+)"', text.read(), re.MULTILINE)
        for header in included:
            target = header.split("/")[0]
            checked += 1
            if target in steps and target != folder and steps[target] >= steps[folder] \
                    and f"{place} includes {header}" not in EXCEPTIONS:
                faults.append(f"{path} includes {header}, which does not lie to its left")
            other = os.path.splitext(header)[0]
            if other in headers and other != own:
                graph[own].add(other)
    faults += ["these include each other in a circle: " + ", ".join(group)
               for group in circles(graph)]
    if checked < 50:
        faults.append(f"only {checked} includes found below {', '.join(roots)}")
    return faults


def main():
    os.chdir(sys.argv[1])
    faults = [fault for house in HOUSES for fault in check(*house)]
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
