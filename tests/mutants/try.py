#!/usr/bin/python3
"""Changes the library in one small place after the other, and looks whether the tests of the class notice.

    try.py BUILD                         300 changes, spread over all sources
    try.py BUILD --count 50              some other number
    try.py BUILD --source rowview.cpp    in one source only; may be given several times
    try.py BUILD --all                   every change there is
    try.py BUILD --again REPORT          only what survived in the run that printed REPORT

BUILD is a directory in which the library and its tests were built with g++, and a compile_commands.json written. Nothing
in it or in the tree is changed. Which changes are tried follows from a number that is printed; WIDGET_SEED sets it.

A change that does not compile, or that compiles to the same code, is replaced by another one. equivalent.txt tells those
that no program can notice. Every change that no test notices is printed; fails if these are more than one in a hundred.
"""

import argparse
import collections
import concurrent.futures
import difflib
import filecmp
import glob
import json
import multiprocessing
import os
import random
import re
import resource
import shlex
import signal
import subprocess
import sys
import tempfile
import threading
import time

import places

HERE = os.path.dirname(os.path.realpath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
SOURCES = os.path.join('ui', 'view', 'widget')
EQUIVALENT = os.path.join(HERE, 'equivalent.txt')
SURVIVED = 'SURVIVED'
CAUGHT_AT_LEAST = 0.99
MINIMUM_PER_SOURCE = 3
# Tests also wait.
WORKERS = os.cpu_count() + 1
# Those that programs include are compiled into the tests as well, and left alone.
INTERNAL_HEADERS = ['keypadcells.h', 'listkeys.h', 'listlook.h', 'qtcompat.h', 'titlelook.h', 'widgetdetails.h']
CATCHERS_TO_TRY = 30
# A program that grows without end is one that is caught.
MEMORY_LIMIT = 4 << 30

LIST = ['tst_widgetlist', 'tst_widgetlistrows', 'tst_widgetlistitem', 'tst_widgetlistitemvalues']
LIST_VIEW = ['tst_widgetlistview', 'tst_widgetlistviewmodels', 'tst_widgetlistviewpictures']
# What is not tst_<class> alone.
PROGRAMS = {
    'keypadcells': ['tst_widgetkeypad', 'tst_widgetkeypadbottom'],
    'keypadline': ['tst_widgetkeypad', 'tst_widgetkeypadprivacy', 'tst_widgetkeypadinput'],
    'listkeys': LIST + LIST_VIEW,
    'listlook': LIST + LIST_VIEW,
    'listtitle': ['tst_widgetlist', 'tst_widgetlistview', 'tst_widgetlistviewpictures'],
    'modelrow': LIST_VIEW,
    'rowdelegate': LIST_VIEW,
    'rowtable': LIST,
    'rowview': LIST_VIEW,
    'threadshared': ['tst_threadshared', 'tst_clockupdatethread', 'tst_dateupdatethread'],
    'titlelook': ['tst_widgetsimpletitle', 'tst_widgetmenutitle'],
    'qtcompat': ['tst_widgetsimpletitle', 'tst_widgetlistrows', 'tst_widgetlistview'],
    'widgetclock': ['tst_widgetclock', 'tst_clockupdatethread'],
    'widgetdate': ['tst_widgetdate', 'tst_dateupdatethread'],
    'widgetdetails': ['tst_widgetbottom', 'tst_widgetsimpletitle', 'tst_widgetsoftbtn', 'tst_widgeticongroup',
                      'tst_widgetmenutitle', 'tst_widgetkeypad', 'tst_widgetclock', 'tst_widgetdate'] + LIST + LIST_VIEW,
    'widgetkeypad': ['tst_widgetkeypad', 'tst_widgetkeypadinput', 'tst_widgetkeypadprivacy'],
    'widgetlist': ['tst_widgetlist', 'tst_widgetlistrows'],
    'widgetlistitem': LIST,
    'widgetlistview': LIST_VIEW,
}

# These search memory for what nobody has wiped.
SEARCHES_MEMORY = ['tst_widgetkeypadprivacy']

ENVIRONMENT = dict(os.environ, QT_QPA_PLATFORM='offscreen', QT_FONT_DPI='96', LC_ALL='C.UTF-8',
                   QTEST_DISABLE_CORE_DUMP='1', QTEST_DISABLE_STACK_DUMP='1')
# Memory that is not used yet, or no longer, looks like nothing useful.
SPOILT_MEMORY = dict(MALLOC_PERTURB_='165', GLIBC_TUNABLES='glibc.malloc.tcache_count=0')


def fail(message):
    sys.exit('try.py: ' + message)


def programs_of(source):
    name = os.path.splitext(source)[0]
    return PROGRAMS.get(name, ['tst_' + name])


class Mutant:
    def __init__(self, source, line, function, diff, code):
        self.source = source
        self.line = line
        self.function = function
        self.diff = diff
        self.code = code

    def key(self):
        return self.source, self.function, tuple(each[0] + each[1:].strip() for each in self.diff)

    def __str__(self):
        return '\n'.join(['%s/%s:%d: %s' % (SOURCES, self.source, self.line, self.function)] + self.diff)


def mutants_of(source, arguments):
    found = places.Source(os.path.join(ROOT, SOURCES, source), arguments)
    before = found.code.decode().splitlines()
    mutants = []
    for change, code in found.all_changes():
        # Without the names of the files and the numbers of the lines.
        diff = list(difflib.unified_diff(before, code.decode().splitlines(), n=0, lineterm=''))[3:]
        first = found.code.count(b'\n', 0, change.start) + 1
        mutants.append(Mutant(source, first, change.function, diff, code))
    return mutants


def read_diffs(path, is_head):
    """The keys of the changes that a file tells: a line with source and function, and the lines that differ."""
    keys = []
    with open(path) as file:
        lines = file.read().splitlines()
    head, diff = None, []
    for line in lines + ['']:
        if line[:1] in ('-', '+') and head:
            diff.append(line[0] + line[1:].strip())
            continue
        if diff:
            keys.append(head + (tuple(diff),))
        head, diff = is_head(line), []
    return keys


def head_of_equivalent(line):
    match = re.match(r'([\w.]+) ([\w:~=<>!+-]+): \S', line)
    return match and match.groups()


def head_of_report(line):
    match = re.match(re.escape(SOURCES) + r'/([\w.]+):\d+: ([\w:~=<>!+-]+)$', line)
    return match and match.groups()


class Builder:
    """Compiles the library's sources as the build did, and links the library."""

    def __init__(self, build, scratch):
        self.build = build
        self.scratch = scratch
        self.units = {}
        with open(os.path.join(build, 'compile_commands.json')) as file:
            for entry in json.load(file):
                if '/widget.dir/' in entry['command'] and not entry['file'].endswith('cmake_pch.hxx.cxx'):
                    self.add_unit(entry)
        if not self.units:
            fail('there is no library in %s' % build)
        self.files = {}
        for path in glob.glob(os.path.join(ROOT, SOURCES, '*.*')):
            with open(path, 'rb') as file:
                self.files[os.path.basename(path)] = file.read()
        self.prefix = os.path.join(scratch, 'system.h')

    def add_unit(self, entry):
        words = shlex.split(entry['command'])
        if os.path.basename(words[0]) == 'ccache':
            del words[0]
        output = os.path.join(entry['directory'], words[words.index('-o') + 1])
        del words[words.index('-o'):words.index('-o') + 2]
        del words[words.index('-c'):]
        # What the build has read of the toolkit was read with other options.
        if '-include' in words:
            del words[words.index('-include'):words.index('-include') + 2]
            words.remove('-Winvalid-pch')
        words = [word for word in words if not word.startswith('-Werror') and not word.startswith('-O') and word != '-g']
        # Not -w, which would also keep silent of that.
        words = [word for word in words if word not in ('-Wall', '-Wextra', '-Wpedantic')]
        words += ['-O2', '-Werror=return-type']
        self.units[os.path.basename(entry['file'])] = (words, output)

    def sources(self):
        return sorted(each for each in self.units if each != 'mocs_compilation.cpp') + INTERNAL_HEADERS

    def units_of(self, source):
        """What must be compiled anew when the source is changed."""
        if source in self.units:
            return [source]
        users = {source}
        while True:
            more = {name for name, code in self.files.items()
                    if any(('#include "%s"' % each).encode() in code for each in users)}
            if more <= users:
                return sorted(each for each in users if each in self.units)
            users |= more

    def arguments(self, source):
        """Those that tell a reader of the source what it means."""
        words = self.units[self.units_of(source)[0]][0]
        chosen = []
        for i, word in enumerate(words):
            if word == '-isystem':
                chosen += [word, words[i + 1]]
            elif word[:2] in ('-I', '-D') or word.startswith('-std='):
                chosen.append(word)
        return chosen

    def precompile(self):
        """Reads the toolkit's headers once for all."""
        headers = set()
        for code in self.files.values():
            headers.update(re.findall(rb'^#include <.*>', code, re.MULTILINE))
        with open(self.prefix, 'wb') as file:
            file.write(b'\n'.join(sorted(headers)) + b'\n')
        first = self.sources()[0]
        subprocess.run(self.units[first][0] + ['-x', 'c++-header', self.prefix, '-o', self.prefix + '.gch'], check=True)
        places.precompile(self.prefix, self.arguments(first), self.prefix + '.pch')

    def write(self, directory, name, code):
        with open(os.path.join(directory, name), 'wb') as file:
            file.write(code)

    def compile(self, directory, unit, output):
        words = self.units[unit][0] + ['-include', self.prefix, '-c', unit, '-o', output]
        run = subprocess.run(words, cwd=directory, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return run.returncode == 0

    def link(self, directory, units):
        objects = [self.units[each][1] for each in sorted(self.units) if each not in units]
        objects += [each + '.o' for each in units]
        subprocess.run([self.units[units[0]][0][0], '-shared', '-Wl,-soname,libwidget.so.1', '-o', 'libwidget.so.1']
                       + objects, cwd=directory, check=True)


class Tester:
    def __init__(self, build):
        self.build = build
        self.seconds = {}
        self.processor_seconds = {}
        self.lock = threading.Lock()
        self.running = set()
        # By source and program, the functions that have caught changes, the last one first.
        self.catchers = collections.defaultdict(list)

    def run(self, program, library, limit, processor_limit, functions=()):
        """Why the program fails with a library, and the function that does; twice None if it does not."""
        def limit_resources():
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
            resource.setrlimit(resource.RLIMIT_CPU, (processor_limit, processor_limit))

        environment = dict(ENVIRONMENT, LD_LIBRARY_PATH=library)
        if program not in SEARCHES_MEMORY:
            environment.update(SPOILT_MEMORY)
        started = subprocess.Popen(
            [os.path.join(self.build, 'bin', program), '-nocrashhandler', *functions], cwd=library, env=environment,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, preexec_fn=limit_resources)
        self.running.add(started)
        hung = threading.Event()
        timer = threading.Timer(limit, lambda: (hung.set(), started.kill()))
        timer.start()
        failed = None
        for line in started.stdout:
            failed = re.match(r'(?:FAIL!|XPASS|QFATAL) *: \w+::(\w+)\((.*?)\) ', line.decode(errors='replace') + ' ')
            if failed:
                started.kill()
                break
        started.stdout.close()
        usage = None
        try:
            _, status, usage = os.wait4(started.pid, 0)
            started.returncode = status = os.waitstatus_to_exitcode(status)
        except ChildProcessError:
            # Killed, and waited for by that.
            status = started.wait()
        self.running.discard(started)
        timer.cancel()
        if failed:
            function, row = failed.groups()
            return '%s %s(%s)' % (program, function, row), function + (':' + row if row else '')
        if hung.is_set() or status in (-signal.SIGXCPU, -signal.SIGKILL):
            return '%s does not end' % program, None
        if status != 0:
            return '%s ends with status %d' % (program, status), None
        if usage:
            self.processor_seconds.setdefault(program, usage.ru_utime + usage.ru_stime)
        return None, None

    def measure(self, program):
        """Also shows that the program passes."""
        with tempfile.TemporaryDirectory() as directory:
            start = time.monotonic()
            reason, _ = self.run(program, directory, 600, 600)
            self.seconds[program] = time.monotonic() - start
        if reason:
            fail('without any change, %s' % reason)

    def catch_by(self, program, source, library, functions):
        # One that waits takes longer the more others there are, one that turns in a circle need not go on for so long.
        reason, function = self.run(program, library, 10 * self.seconds[program] + 20,
                                    int(3 * self.processor_seconds[program]) + 5, functions)
        # A row that is called otherwise than it is printed cannot be asked for.
        if functions and not function:
            return None
        with self.lock:
            catchers = self.catchers[source, program]
            if function in catchers:
                catchers.remove(function)
            if function:
                catchers.insert(0, function)
                del catchers[CATCHERS_TO_TRY:]
        return reason

    def survives(self, source, library):
        """Why the library fails, or None."""
        programs = sorted(programs_of(source), key=self.seconds.get)
        # What has caught one change is likely to catch the next one as well.
        for program in programs:
            with self.lock:
                functions = list(self.catchers[source, program])
            reason = functions and self.catch_by(program, source, library, functions)
            if reason:
                return reason
        for program in programs:
            reason = self.catch_by(program, source, library, [])
            if reason:
                return reason
        return None


class Trial:
    """Goes through the candidates of each source until it has tried as many as it should."""

    def __init__(self, builder, tester, candidates, quotas):
        self.builder = builder
        self.tester = tester
        self.waiting = {each: collections.deque(candidates[each]) for each in candidates}
        self.left = dict(quotas)
        self.total = sum(quotas.values())
        self.stopped = False
        self.lock = threading.Condition()
        self.counts = collections.Counter()
        self.survivors = []

    def take(self, preferred):
        """A candidate, from a source that has been taken from before if possible; None at the end."""
        with self.lock:
            for source in sorted(self.left, key=lambda each: (each != preferred, each)):
                if not self.stopped and self.left[source] > 0 and self.waiting[source]:
                    self.left[source] -= 1
                    return self.waiting[source].popleft()
            return None

    def stop(self):
        self.stopped = True
        for program in list(self.tester.running):
            program.kill()

    def give_back(self, mutant, what):
        with self.lock:
            self.counts[what] += 1
            self.left[mutant.source] += 1

    def work(self, number):
        # A copy of the sources, for the changes.
        directory = os.path.join(self.builder.scratch, str(number))
        os.mkdir(directory)
        for name, code in self.builder.files.items():
            self.builder.write(directory, name, code)
        unchanged = set()
        mutant = None
        while True:
            mutant = self.take(mutant and mutant.source)
            if not mutant:
                return
            units = self.builder.units_of(mutant.source)
            for unit in set(units) - unchanged:
                if not self.builder.compile(directory, unit, unit + '.unchanged.o'):
                    fail('%s does not compile' % unit)
                unchanged.add(unit)
            self.builder.write(directory, mutant.source, mutant.code)
            self.try_change(directory, mutant, units)
            self.builder.write(directory, mutant.source, self.builder.files[mutant.source])

    def try_change(self, directory, mutant, units):
        same = True
        for unit in units:
            if not self.builder.compile(directory, unit, unit + '.o'):
                self.give_back(mutant, 'do not compile')
                return
            path = os.path.join(directory, unit)
            same = same and filecmp.cmp(path + '.unchanged.o', path + '.o', shallow=False)
        if same:
            self.give_back(mutant, 'compile to the same code')
            return
        self.builder.link(directory, units)
        self.tell(mutant, self.tester.survives(mutant.source, directory))

    def tell(self, mutant, reason):
        with self.lock:
            self.counts['caught' if reason else 'survived'] += 1
            done = self.counts['caught'] + self.counts['survived']
            if reason:
                print('[%d/%d] caught %s:%d by %s' % (done, self.total, mutant.source, mutant.line, reason))
            else:
                self.survivors.append(mutant)
                print('[%d/%d] %s\n%s\n' % (done, self.total, SURVIVED, mutant))
            sys.stdout.flush()


def quotas_of(candidates, count):
    """How many changes to try in each source: in proportion to those there are, and some in each."""
    quotas = {each: min(MINIMUM_PER_SOURCE, len(candidates[each])) for each in candidates}
    total = sum(len(each) for each in candidates.values())
    rest = max(count - sum(quotas.values()), 0)
    shares = {each: rest * len(candidates[each]) / total for each in candidates}
    for each in candidates:
        quotas[each] += int(shares[each])
    missing = count - sum(quotas.values())
    for each in sorted(shares, key=lambda each: (int(shares[each]) - shares[each], each))[:max(missing, 0)]:
        quotas[each] += 1
    return quotas


def parse_arguments():
    parser = argparse.ArgumentParser(usage=__doc__.split('\n', 2)[2])
    parser.add_argument('build')
    parser.add_argument('--count', type=int, default=300)
    parser.add_argument('--source', action='append')
    parser.add_argument('--all', action='store_true')
    parser.add_argument('--again')
    return parser.parse_args()


def candidates_of(arguments):
    source, words = arguments
    return mutants_of(source, words)


def choose(options, builder, seed):
    """What may be tried, by source and in the order in which it is; how many are left out as equivalent."""
    sources = options.source or builder.sources()
    for source in sources:
        if source not in builder.sources():
            fail('there is no source "%s"' % source)
    with multiprocessing.Pool(WORKERS) as pool:
        found = pool.map(candidates_of, [(each, ['-include-pch', builder.prefix + '.pch'] + builder.arguments(each))
                                         for each in sources], 1)
        # Otherwise they are ended by a signal, which libclang may wait in for ever.
        pool.close()
        pool.join()
    candidates = dict(zip(sources, found))

    equivalent = read_diffs(EQUIVALENT, head_of_equivalent)
    known = {mutant.key() for each in found for mutant in each}
    for key in equivalent:
        if key[0] in candidates and key not in known:
            fail('equivalent.txt tells a change of %s that there is not:\n%s' % (key[0], '\n'.join(key[2])))
    again = options.again and set(read_diffs(options.again, head_of_report))
    left_out = 0
    for source in sources:
        chosen = [each for each in candidates[source] if each.key() not in equivalent]
        left_out += len(candidates[source]) - len(chosen)
        if again is not None:
            chosen = [each for each in chosen if each.key() in again]
        random.Random('%d %s' % (seed, source)).shuffle(chosen)
        candidates[source] = chosen
    return candidates, left_out


def run(options, seed, scratch):
    builder = Builder(options.build, scratch)
    tester = Tester(options.build)
    builder.precompile()
    candidates, left_out = choose(options, builder, seed)
    number = sum(len(each) for each in candidates.values())
    if options.all or options.again:
        quotas = {each: len(candidates[each]) for each in candidates}
    else:
        quotas = quotas_of(candidates, options.count)
    print('WIDGET_SEED=%d, %d of %d changes in %d sources' % (seed, sum(quotas.values()), number, len(candidates)))
    sys.stdout.flush()
    with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        list(pool.map(tester.measure, sorted({each for source in quotas if quotas[source]
                                              for each in programs_of(source)})))

    trial = Trial(builder, tester, candidates, quotas)
    with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        try:
            for future in [pool.submit(trial.work, each) for each in range(WORKERS)]:
                future.result()
        finally:
            trial.stop()
    counts = trial.counts
    tried = counts['caught'] + counts['survived']
    print('\n-- What no test notices')
    for survivor in trial.survivors:
        print('\n%s' % survivor)
    print('\nWIDGET_SEED=%d' % seed)
    for what in ('do not compile', 'compile to the same code'):
        print('%4d left out that %s' % (counts[what], what))
    print('%4d left out that equivalent.txt tells' % left_out)
    share = counts['caught'] / tried if tried else 1
    print('%d of %d caught, %.1f %%' % (counts['caught'], tried, 100 * share))
    return share >= CAUGHT_AT_LEAST


def main():
    options = parse_arguments()
    options.build = os.path.abspath(options.build)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    start = time.monotonic()
    seed = int(os.environ.get('WIDGET_SEED') or random.SystemRandom().randrange(100000))
    with tempfile.TemporaryDirectory() as scratch:
        good = run(options, seed, scratch)
    print('%d minutes' % ((time.monotonic() - start) / 60))
    sys.exit(0 if good else 1)


if __name__ == '__main__':
    main()
