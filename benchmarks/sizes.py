#!/usr/bin/python3
"""Measures how large the library is and what it needs, and holds both to what sizes-qt5.txt and sizes-qt6.txt accept.

    benchmarks/sizes.py BUILD            fails if something takes more, or if something else is needed, than is accepted
    benchmarks/sizes.py BUILD --renew    accepts what is found, for the toolkit of that build, and writes docs/sizes.md

BUILD is a directory in which the library was built as it is to be installed.

Each byte of the stripped library is counted once, for the source that it is there for: code, constants and meta-objects by
the symbol that they belong to, what unwinds the stack by the function, a relocation by the table in which it is, a name by
the symbol. What templates and inline functions compile to belongs to the source that has it, or to several; so does what
it takes to call a function of the toolkit.

Sizes are compared where the same release of g++ made them for the same processor and toolkit. Which libraries and modules
are needed is compared always.
"""

import bisect
import collections
import glob
import os
import re
import subprocess
import sys
import tempfile

from elftools.dwarf.callframe import FDE
from elftools.elf.constants import SH_FLAGS
from elftools.elf.elffile import ELFFile

ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
SOURCES = os.path.join('ui', 'view', 'widget')
PAGE = os.path.join('docs', 'sizes.md')
PAGE_FIGURES = '\n## The whole library\n'  # what follows this on the page is written here
TOOLKITS = ['5', '6']
RENEWING = 'benchmarks/sizes.py <build> --renew'

# More than a change of some lines takes. The whole file grows by pages of 4096 bytes, a good hundredth of it.
ALLOWED_BYTES = 512
ALLOWED_PERCENT = 2

KINDS = ['code', 'constants', 'unwinding', 'linking']
SEVERAL = 'templates and inline functions of several'
CALLS = 'functions of the toolkit that several call'
REST = 'the rest: headers, padding, start and end'
NO_SOURCES = [SEVERAL, CALLS, REST]
FILE, RELOCATIONS, EXPORTED = 'file, stripped', 'relocations', 'exported symbols'
PLATFORM = 'platform/'
OUTSIDE = '-'  # instead of a class: functions of none


def fail(message):
    sys.exit('sizes.py: ' + message)


def read_headers():
    """The source of each class, and the classes that each source exports, first the one that gave it its name."""
    source_of, exported = {}, {}
    for path in glob.glob(os.path.join(ROOT, SOURCES, '*.h')):
        source = os.path.basename(path)[:-len('.h')]
        with open(path) as file:
            text = file.read()
        for name in re.findall(r'^(?:class|struct) (?:WIDGET_EXPORT )?(\w+)(?: : .*)?$', text, re.MULTILINE):
            source_of[name] = source
        exported[source] = sorted(re.findall(r'^class WIDGET_EXPORT (\w+)', text, re.MULTILINE),
                                  key=lambda name: name.lower() != source)
    return source_of, exported


SOURCE_OF, EXPORTED_BY = read_headers()


def label(source):
    if source in NO_SOURCES:
        return source
    return ', '.join(EXPORTED_BY.get(source, [])) or source + '.cpp'


# Measuring


class Objects:
    """The object files of the sources: what each defines, calls, and has of texts and numbers without a name."""

    def __init__(self, build):
        self.definers = collections.defaultdict(set)
        self.callers = collections.defaultdict(set)
        self.unnamed = {}
        directory = os.path.join(build, SOURCES, 'CMakeFiles', 'widget.dir')
        for path in glob.glob(os.path.join(directory, '*.cpp.o')):
            with open(path, 'rb') as file:
                self.read(os.path.basename(path)[:-len('.cpp.o')], ELFFile(file))
        if not self.unnamed:
            fail('There are no object files in %s.' % directory)

    def read(self, source, elf):
        unnamed = {number: section['sh_size'] for number, section in enumerate(elf.iter_sections())
                   if section.name.startswith('.rodata') and not section['sh_flags'] & SH_FLAGS.SHF_GROUP}
        for symbol in elf.get_section_by_name('.symtab').iter_symbols():
            if symbol['st_shndx'] == 'SHN_UNDEF':
                self.callers[symbol.name].add(source)
            elif symbol['st_info'].bind != 'STB_LOCAL':
                self.definers[symbol.name].add(source)
            if symbol['st_shndx'] in unnamed:
                unnamed[symbol['st_shndx']] -= symbol['st_size']
        self.unnamed[source] = sum(unnamed.values())


class Owners:
    """Which source a symbol or an address of the library is there for."""

    def __init__(self, elf, objects):
        self.objects = objects
        longest_first = sorted(SOURCE_OF, key=len, reverse=True)
        self.class_in = re.compile(r'[\d_](%s)' % '|'.join(longest_first))
        self.pieces = {}  # by address: size, number of the section, owner
        file = ''
        for symbol in elf.get_section_by_name('.symtab').iter_symbols():
            if symbol['st_info'].type == 'STT_FILE':
                file = symbol.name[:-len('.cpp')]
            elif symbol['st_size'] > 0 and isinstance(symbol['st_shndx'], int):
                local = symbol['st_info'].bind == 'STB_LOCAL' and file in objects.unnamed
                owner = file if local else self.of_name(symbol.name)
                self.pieces[symbol['st_value']] = (symbol['st_size'], symbol['st_shndx'], owner)
        self.addresses = sorted(self.pieces)

    def of_name(self, name):
        definers = self.objects.definers[name]
        if len(definers) == 1:
            return min(definers)
        # It is in several, or only in what moc made of all classes.
        mentioned = self.class_in.search(name)
        return SOURCE_OF[mentioned.group(1)] if mentioned else SEVERAL

    def of_address(self, address):
        place = bisect.bisect_right(self.addresses, address) - 1
        if place >= 0:
            size, _, owner = self.pieces[self.addresses[place]]
            if address < self.addresses[place] + size:
                return owner
        return REST


class Library:
    def __init__(self, build):
        with open(os.path.join(build, 'CMakeCache.txt')) as file:
            cache = dict(re.findall(r'^(\w+):\w+=(.*)$', file.read(), re.MULTILINE))
        if cache['CMAKE_BUILD_TYPE'] != 'Release':
            fail('%s is no Release build.' % build)
        self.toolkit = cache['WIDGET_QT']
        path = os.path.join(build, 'lib', 'libwidget.so')
        with open(path, 'rb') as file:
            self.elf = ELFFile(file)
            self.section = {section.name: section for section in self.elf.iter_sections()}
            self.owners = Owners(self.elf, Objects(build))
            self.bytes = collections.defaultdict(collections.Counter)  # by owner and kind
            self.count_pieces()
            self.count_unwinding()
            self.count_linking()
            self.find_totals(path, cache['CMAKE_STRIP'])
            self.find_needs()
        self.bytes[REST]['other'] = self.totals[FILE] - sum(sum(kinds.values()) for kinds in self.bytes.values())

    def count_pieces(self):
        names = [section.name for section in self.elf.iter_sections()]
        for size, number, owner in self.owners.pieces.values():
            if names[number] != '.bss':
                self.bytes[owner]['code' if names[number] == '.text' else 'constants'] += size
        for source, size in self.owners.objects.unnamed.items():
            self.bytes[source]['constants'] += size

    def count_unwinding(self):
        tables = []
        for entry in self.elf.get_dwarf_info().EH_CFI_entries():
            if isinstance(entry, FDE):
                owner = self.owners.of_address(entry['initial_location'])
                # The entry with its length, and its place in the index.
                self.bytes[owner]['unwinding'] += entry['length'] + 4 + 8
                if entry.lsda_pointer:
                    tables.append((entry.lsda_pointer, owner))
        section = self.section['.gcc_except_table']
        tables = sorted(set(tables)) + [(section['sh_addr'] + section['sh_size'], REST)]
        for (begin, owner), (end, _) in zip(tables, tables[1:]):
            self.bytes[owner]['unwinding'] += end - begin

    def count_linking(self):
        symbols = list(self.section['.dynsym'].iter_symbols())
        callers = [set(self.owners.objects.callers[symbol.name]) for symbol in symbols]
        slots = collections.Counter()  # what calls take, by the number of the symbol
        got = [self.section[name] for name in ('.got', '.got.plt') if name in self.section]
        for name in ('.rela.dyn', '.rela.plt'):
            size = self.section[name]['sh_entsize']
            for relocation in self.section[name].iter_relocations():
                address, symbol = relocation['r_offset'], relocation['r_info_sym']
                if any(table['sh_addr'] <= address < table['sh_addr'] + table['sh_size'] for table in got):
                    slots[symbol] += size + self.elf.elfclass // 8
                    if name == '.rela.plt':
                        slots[symbol] += self.section['.plt']['sh_entsize']
                else:
                    owner = self.owners.of_address(address)
                    self.bytes[owner]['linking'] += size
                    callers[symbol].add(owner)
        for number, symbol in enumerate(symbols):
            # The symbol, its version and its name.
            size = self.section['.dynsym']['sh_entsize'] + 2 + len(symbol.name) + 1
            if symbol['st_shndx'] != 'SHN_UNDEF':
                owner = self.owners.of_name(symbol.name)
                size += 4  # in the hash table
            elif number == 0:
                owner = REST
            else:
                owner = min(callers[number]) if len(callers[number]) == 1 else CALLS
            self.bytes[owner]['linking'] += size + slots[number]

    def find_totals(self, path, strip):
        self.totals = collections.OrderedDict()
        with tempfile.TemporaryDirectory() as directory:
            stripped = os.path.join(directory, 'stripped')
            subprocess.run([strip, '-o', stripped, path], check=True)
            self.totals[FILE] = os.path.getsize(stripped)
        self.totals.update([('text', 0), ('data', 0), ('bss', 0)])
        for section in self.elf.iter_sections():
            if section['sh_type'] == 'SHT_NOBITS':
                self.totals['bss'] += section['sh_size']
            elif section['sh_flags'] & SH_FLAGS.SHF_ALLOC:
                self.totals['data' if section['sh_flags'] & SH_FLAGS.SHF_WRITE else 'text'] += section['sh_size']
        self.totals[RELOCATIONS] = sum(self.section[name].num_relocations() for name in ('.rela.dyn', '.rela.plt'))
        self.totals[EXPORTED] = sum(symbol['st_shndx'] != 'SHN_UNDEF' for symbol in self.section['.dynsym'].iter_symbols())

    def find_needs(self):
        self.needed = sorted(tag.needed for tag in self.section['.dynamic'].iter_tags('DT_NEEDED'))
        self.calls = collections.Counter()  # functions and tables of others, by module and class
        modules, versions = {}, []
        for library, entries in self.section['.gnu.version_r'].iter_versions():
            for entry in entries:
                module = re.sub(r'^libQt\d?(\w+)\.so.*', r'\1', library.name)
                modules[entry['vna_other']] = module + ('Private' if 'PRIVATE' in entry.name else '')
                versions.append(entry.name)
        for number, symbol in enumerate(self.section['.dynsym'].iter_symbols()):
            if number > 0 and symbol['st_shndx'] == 'SHN_UNDEF':
                module = modules.get(self.section['.gnu.version'].get_symbol(number)['ndx'], PLATFORM)
                # What is weak is for programs that are profiled, and the like.
                if module != PLATFORM or symbol['st_info'].bind != 'STB_WEAK':
                    self.calls[module, class_of(symbol.name)] += 1
        compiler = re.search(rb'GCC: \(.*\) (\d+)\.', self.section['.comment'].data())
        self.made_by = '%s for %s with Qt %s' % (
            'g++ ' + compiler.group(1).decode() if compiler else 'another compiler',
            self.elf.get_machine_arch(),
            next((version[len('Qt_'):] for version in versions if re.match(r'Qt_\d+\.', version)), self.toolkit))


def class_of(symbol):
    """The class of a mangled name, or its outermost name space."""
    outer = re.match(r'_Z(T[VIS]|T[hv][n\d_]*N|NK?)(\d+)', symbol)
    return symbol[outer.end():][:int(outer.group(2))] if outer else OUTSIDE


# What is accepted


class Figures:
    def __init__(self):
        self.made_by = ''
        self.needed = []
        self.totals = collections.OrderedDict()
        self.sources = collections.OrderedDict()
        self.calls = collections.OrderedDict()

    @staticmethod
    def of(library):
        figures = Figures()
        figures.made_by, figures.needed, figures.totals = library.made_by, library.needed, library.totals
        for owner in sorted(set(library.bytes) - set(NO_SOURCES)) + NO_SOURCES:
            figures.sources[owner] = sum(library.bytes[owner].values())
        figures.calls.update(sorted(library.calls.items()))
        return figures

    @staticmethod
    def accepted(toolkit):
        figures = Figures()
        path = accepted_file(toolkit)
        if os.path.exists(path):
            with open(path) as file:
                for line in file:
                    figures.read(*line.split(None, 1))
        return figures

    def read(self, kind, line):
        line = line.rstrip('\n')
        if kind == 'made-by':
            self.made_by = line
        elif kind == 'needs':
            self.needed.append(line)
        elif kind in ('total', 'takes', 'calls'):
            value, name = line.split(None, 1)
            if kind == 'total':
                self.totals[name] = int(value)
            elif kind == 'takes':
                self.sources[name] = int(value)
            else:
                self.calls[tuple(name.split())] = int(value)

    def write(self, toolkit):
        with open(accepted_file(toolkit), 'w') as file:
            file.write('# What sizes.py accepts, which writes this: %s\n' % RENEWING)
            file.write('made-by %s\n' % self.made_by)
            file.writelines('needs %s\n' % name for name in self.needed)
            file.writelines('total %7d %s\n' % (value, name) for name, value in self.totals.items())
            file.writelines('takes %7d %s\n' % (value, name) for name, value in self.sources.items())
            file.writelines('calls %7d %s %s\n' % (value, module, name) for (module, name), value in self.calls.items())

    def classes(self):
        """The classes that are used, with their modules."""
        return [(module, name) for module, name in self.calls if name != OUTSIDE]

    def modules(self):
        return {module for module, _ in self.calls}


def accepted_file(toolkit):
    return os.path.join(ROOT, 'benchmarks', 'sizes-qt%s.txt' % toolkit)


def is_more(value, than, in_bytes):
    return value > than * (1 + ALLOWED_PERCENT / 100) and (not in_bytes or value > than + ALLOWED_BYTES)


def compare(found, accepted):
    """What is more than accepted, and what is less, in a sentence each."""
    more = ['%s is needed, which was not.' % name for name in found.needed if name not in accepted.needed]
    less = ['%s is not needed any more.' % name for name in accepted.needed if name not in found.needed]
    more += ['Something of %s is called, which was not.' % name for name in sorted(found.modules() - accepted.modules())]
    if found.made_by != accepted.made_by:
        return more, less

    more += ['%s of %s is used, which was not.' % (name, module) for module, name in found.classes()
             if module in accepted.modules() and (module, name) not in accepted.calls]
    less += ['%s of %s is not used any more.' % (name, module) for module, name in accepted.classes()
             if (module, name) not in found.calls]
    for new, old in [(found.sources, accepted.sources), (found.totals, accepted.totals)]:
        for name in new:
            in_bytes = name not in (RELOCATIONS, EXPORTED)
            sentence = '%s: %d%s' % (label(name) if new is found.sources else name, new[name], ' bytes' * in_bytes)
            if name not in old:
                more.append('%s, and nothing is accepted yet.' % sentence)
            elif name == REST:
                pass  # It goes up and down with the pages of the file, and the whole file is compared anyhow.
            elif is_more(new[name], old[name], in_bytes):
                more.append('%s, where %d are accepted.' % (sentence, old[name]))
            elif is_more(old[name], new[name], in_bytes):
                less.append('%s, where %d are accepted.' % (sentence, old[name]))
        less += ['%s is gone.' % label(name) for name in old if name not in new]
    return more, less


# Telling


def report(library, found, accepted):
    line = '%-46s' + '%10s' * 6
    print(line % tuple([found.made_by] + KINDS + ['together', 'accepted']))
    for name, size in found.sources.items():
        kinds = [library.bytes[name][kind] or '' for kind in KINDS]
        print(line % tuple([label(name)] + kinds + [size, accepted.sources.get(name, '')]))
    for name, value in found.totals.items():
        print(line % (name, '', '', '', '', value, accepted.totals.get(name, '')))


def table(head, rows):
    lines = ['| %s |' % ' | '.join(head), '|' + '---|' * len(head)] + ['| %s |' % ' | '.join(row) for row in rows]
    return ''.join(line + '\n' for line in lines)


def table_of(head, names, columns):
    """A line for each of the names, with the number that each of the columns has for it."""
    return table(head, [[name] + ['{:,}'.format(column[name]) if name in column else '' for column in columns]
                        for name in names])


def figures_on_page():
    both = [Figures.accepted(toolkit) for toolkit in TOOLKITS]
    sources = [{label(name): size for name, size in figures.sources.items()} for figures in both]
    source_names = sorted(set().union(*sources), key=lambda name: (name in NO_SOURCES, '.' in name, name))
    calls = [collections.Counter() for _ in both]
    for figures, counter in zip(both, calls):
        for (module, _), count in figures.calls.items():
            counter[module] += count
    module_names = sorted(set().union(*calls))
    classes = []
    for module in module_names:
        qt5, qt6 = [{name for its_module, name in figures.classes() if its_module == module} for figures in both]
        if module[0].isupper():
            classes.append([module] + [', '.join(sorted(names)) for names in (qt5 & qt6, qt5 - qt6, qt6 - qt5)])
    return '\n'.join([
        '',
        'Made by %s.\n' % ', and by '.join(figures.made_by for figures in both),
        table_of(['', 'Qt 5', 'Qt 6'], both[0].totals, [figures.totals for figures in both]),
        '## What it needs\n',
        table_of(['functions and tables of', 'Qt 5', 'Qt 6'], module_names, calls),
        'These classes of the toolkit are used, apart from what they need themselves:\n',
        table(['', 'with both', 'with Qt 5 only', 'with Qt 6 only'], classes),
        '## What each class adds\n',
        table_of(['bytes', 'Qt 5', 'Qt 6'], source_names, sources),
    ])


def main():
    arguments = sys.argv[1:]
    renewing = arguments[1:] == ['--renew']
    if len(arguments) != 1 and not renewing:
        sys.exit(__doc__.strip())
    library = Library(arguments[0])
    found = Figures.of(library)
    if renewing:
        found.write(library.toolkit)
    accepted = Figures.accepted(library.toolkit)
    report(library, found, accepted)

    more, less = compare(found, accepted)
    if found.made_by != accepted.made_by:
        print('\nSizes are not compared: accepted are those of %s.' % (accepted.made_by or 'nobody yet'))
    if less:
        print('\nSomething has become smaller. Hold it: %s\n%s' % (RENEWING, '\n'.join(less)))
    with open(os.path.join(ROOT, PAGE)) as file:
        before, heading, after = file.read().partition(PAGE_FIGURES)
    if renewing:
        with open(os.path.join(ROOT, PAGE), 'w') as file:
            file.write(before + heading + figures_on_page())
    elif after != figures_on_page():
        more.append('%s does not tell what is accepted.' % PAGE)
    if more:
        print('\n%s\nIf that is meant: %s' % ('\n'.join(more), RENEWING))
        sys.exit(1)


main()
