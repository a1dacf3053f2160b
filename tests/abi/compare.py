#!/usr/bin/env python3
"""Holds the binary interface of the library to the one that programs out there were linked with.

    compare.py LIBRARY BASELINE                 fails where the two differ
    compare.py LIBRARY BASELINE --renew LINE    accepts the library's, and adds LINE to CHANGELOG.md

LIBRARY is built with debug information. BASELINE tells, for each class that is exported, its size, its bases, where its
data members stand, its table of virtual functions and its enumerations; and all symbols. libabigail reads them.
"""

import difflib
import glob
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..')
HEADERS = os.path.join(ROOT, 'ui', 'view', 'widget', '*.h')
CHANGELOG = os.path.join(ROOT, 'CHANGELOG.md')
UNRELEASED = '## Unreleased\n'


def fail(message):
    sys.exit('compare.py: ' + message)


def read_library(path):
    with tempfile.TemporaryDirectory() as directory:
        dump = os.path.join(directory, 'dump')
        run = subprocess.run(['abidw', '--no-show-locs', '--out-file', dump, path], stderr=subprocess.PIPE, text=True)
        if run.returncode != 0:
            fail('%s cannot be read: %s' % (path, run.stderr.strip()))
        return ElementTree.parse(dump).getroot()


def exported_classes():
    names = set()
    for header in glob.glob(HEADERS):
        with open(header) as file:
            names.update(re.findall(r'^class WIDGET_EXPORT (\w+)', file.read(), re.MULTILINE))
    return names


def lines_of_class(declaration, names):
    name = declaration.get('name')
    yield 'class %s: %d bytes' % (name, int(declaration.get('size-in-bits')) // 8)
    virtuals = {}
    for member in declaration:
        offset = int(member.get('layout-offset-in-bits', -1)) // 8
        if member.tag == 'base-class':
            yield '  %4d  base %s' % (offset, names.get(member.get('type-id'), '?'))
        elif member.tag == 'data-member' and member.get('static') != 'yes':
            yield '  %4d  %s %s' % (offset, member.get('access'), member[0].get('name'))
        elif member.tag == 'member-function' and int(member.get('vtable-offset', -1)) >= 0:
            virtuals[int(member.get('vtable-offset'))] = member[0].get('mangled-name')
        elif member.tag == 'member-type' and member[0].tag == 'enum-decl' and member.get('access') == 'public':
            for value in member[0].iter('enumerator'):
                yield '  enum %s: %s = %s' % (member[0].get('name'), value.get('name'), value.get('value'))
    for offset in sorted(virtuals):
        yield '  virtual %3d  %s' % (offset, virtuals[offset])


def interface_of(path):
    root = read_library(path)
    ours = exported_classes()
    names = {element.get('id'): element.get('name') for element in root.iter('class-decl')}
    classes = {}
    for declaration in root.iter('class-decl'):
        if declaration.get('size-in-bits') and declaration.get('name') in ours:
            text = list(lines_of_class(declaration, names))
            # Each source file may know a class in part.
            if len(text) > len(classes.get(declaration.get('name'), [])):
                classes[declaration.get('name')] = text
    if not classes:
        fail('%s has no debug information' % path)
    lines = [root.get('architecture') + ' ' + root.get('soname')]
    for name in sorted(classes):
        lines += classes[name]
    # What the compiler makes of the toolkit's templates on the way is not ours.
    of_ours = re.compile('|'.join('%d%s' % (len(name), name) for name in sorted(ours)))
    symbols = [symbol.get('name') for symbol in root.iter('elf-symbol')
               if symbol.get('is-defined') == 'yes' and of_ours.search(symbol.get('name'))]
    return [line + '\n' for line in lines + ['symbol ' + symbol for symbol in sorted(symbols)]]


def main():
    arguments = sys.argv[1:]
    renewing = len(arguments) == 4 and arguments[2] == '--renew' and arguments[3].strip()
    if len(arguments) != 2 and not renewing:
        sys.exit(__doc__.strip())
    library, baseline = arguments[:2]
    found = interface_of(library)
    accepted = []
    if os.path.exists(baseline):
        with open(baseline) as file:
            accepted = file.readlines()
    if accepted and accepted[0] != found[0]:
        print('Not compared: the baseline is that of %s, this is %s' % (accepted[0].strip(), found[0].strip()))
        return
    if found == accepted:
        print('%d symbols and %d classes, as before' % (sum(line.startswith('symbol') for line in found),
                                                        sum(line.startswith('class') for line in found)))
        return
    sys.stdout.writelines(difflib.unified_diff(accepted, found, 'accepted', 'found', n=1))
    if not renewing:
        fail('the binary interface has changed; if that is meant, name the change with --renew')

    with open(CHANGELOG) as file:
        changes = file.read()
    line = '- %s\n' % arguments[3].strip()
    if UNRELEASED not in changes:
        fail('CHANGELOG.md has no "%s"' % UNRELEASED.strip())
    if line not in changes:
        # As the last one of its list.
        before, unreleased, after = changes.partition(UNRELEASED)
        list_of_changes, next_heading, rest = after.partition('\n## ')
        with open(CHANGELOG, 'w') as file:
            file.write(before + unreleased + list_of_changes.rstrip('\n') + '\n' + line + next_heading + rest)
    with open(baseline, 'w') as file:
        file.writelines(found)


main()
