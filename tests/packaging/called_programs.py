# SPDX-License-Identifier: GPL-3.0-or-later
"""Which programs and Python modules the scripts, the build and the tests call, and which Debian packages bring them."""
import ast
import os
import re
import subprocess
import sys
from pathlib import Path

from shell_commands import commands_of

TREE = Path(__file__).resolve().parents[2]
# Where packages put programs; not /usr/local, where somebody may have put another one.
FOLDERS = ["/usr/sbin", "/usr/bin", "/sbin", "/bin"]
# Their further words hold a command.
CARRIERS = {"env", "exec", "command", "timeout", "nice", "sudo", "xargs", "chroot", "unshare", "builtin", "nohup"}
NAME = re.compile(r"[A-Za-z][\w.+-]*$")
LISTS = ["BUILD_PACKAGES", "RUN_PACKAGES", "PACKAGE_PACKAGES", "TEST_PACKAGES"]
LISTS_OF_ALL = ["ALL_TEST_PACKAGES", "COVERAGE_PACKAGES"]
# Run by `./test --all` and `./test --coverage` only.
SCRIPTS_OF_ALL = {"test", "tests/tidy/run", "tests/coverage/run", "tests/packaging/bare_system.sh",
                  "tests/packaging/enter_system.sh", "tests/packaging/minimal_system.sh",
                  "tests/packaging/fresh_root_test.sh", "tests/validation/openturns_answers.py"}
# Asked for by hand, beside programs that may be there or not; bench/README.md names their packages.
LEFT_OUT = ("bench/",)

CPP_TEXT = r'((?:"(?:[^"\\\n]|\\.)*"\s*)+)'
CPP_PROGRAM = re.compile(r"\b(?:execute|start|startDetached|Output)\(\s*" + CPP_TEXT + r",\s*\{")
CPP_WORDS = re.compile(r"\b(?:Start|Spawn)\(\s*\{\s*" + CPP_TEXT)
CPP_COMMAND = re.compile(r"\b(?:OutputOf|Shell|system|popen)\(\s*" + CPP_TEXT)
CMAKE_COMMAND = re.compile(r"\bCOMMAND\s+([a-z][a-z0-9.+-]*)[\s)]")
PYTHON_RUNNERS = {"run", "Popen", "check_output", "check_call", "call", "system"}


def builtins():
    told = subprocess.run(["bash", "-c", "compgen -b; compgen -k"], capture_output=True, text=True, check=True)
    return set(told.stdout.split())


def path_of(program):
    """Where the system has the program, not what somebody put in front of it."""
    for folder in FOLDERS:
        if os.access(f"{folder}/{program}", os.X_OK):
            return f"{folder}/{program}"
    return None


def cpp_value(text):
    """The value of adjacent literals of C++."""
    return "".join(re.sub(r"\\(.)", r"\1", literal) for literal in re.findall(r'"((?:[^"\\\n]|\\.)*)"', text))


class Calls:
    """What the files of a tree call: {program: file} and {module: file}."""

    def __init__(self):
        self.programs = {}
        self.modules = {}
        self.builtins = builtins()
        self.functions = set()

    def program(self, name, file):
        if NAME.match(name):
            self.programs.setdefault(name, file)

    def shell(self, text, file):
        commands, functions = commands_of(text)
        # A script that looks whether a program is there can do without it.
        functions |= {words[2].text for words in commands if [word.text for word in words[:2]] == ["command", "-v"]}
        for words in commands:
            self.command(words, file, functions | self.functions)

    def command(self, words, file, functions):
        first = words[0]
        name = first.text if first.literal else ""
        if name in functions | CARRIERS:
            self.carried(words[1:], file, functions)
        if name in functions | self.builtins:
            return
        if name in ("bash", "sh"):
            for option, value in zip(words[1:], words[2:]):
                if re.match(r"-\w*c$", option.text):
                    self.shell(value.text, file)
        self.program(name, file)

    def carried(self, words, file, functions):
        """Words of which one may be a program: those that are programs here."""
        for word in words:
            if word.literal and NAME.match(word.text) and word.text not in functions and path_of(word.text):
                self.program(word.text, file)

    def python(self, text, file):
        for node in ast.walk(ast.parse(text)):
            if isinstance(node, ast.Import):
                for alias in node.names:
                    self.modules.setdefault(alias.name.partition(".")[0], file)
            elif isinstance(node, ast.ImportFrom) and node.level == 0:
                self.modules.setdefault(node.module.partition(".")[0], file)
            elif isinstance(node, ast.Call) and node.args:
                self.python_call(node.func, node.args[0], file)

    def python_call(self, function, argument, file):
        listed = isinstance(argument, ast.List)
        first = (argument.elts or [None])[0] if listed else argument
        text = getattr(first, "value", None)
        if not isinstance(text, str):
            return
        if isinstance(function, ast.Attribute) and getattr(function.value, "id", "") in ("subprocess", "os"):
            if listed:
                self.program(text, file)
            elif function.attr in PYTHON_RUNNERS:
                self.shell(text, file)
        elif listed and path_of(text):  # a function of the script's own
            self.program(text, file)

    def cpp(self, text, file):
        for literal in CPP_PROGRAM.findall(text) + CPP_WORDS.findall(text):
            self.program(cpp_value(literal), file)
        for literal in CPP_COMMAND.findall(text):
            self.shell_of_cpp(cpp_value(literal), file)

    def shell_of_cpp(self, text, file):
        # The first part of a text that the program joins; a quote that opens in it may close in another.
        try:
            self.shell(text, file)
        except (ValueError, IndexError):
            self.shell(text.partition("'")[0], file)

    def cmake(self, text, file):
        for name in CMAKE_COMMAND.findall(text):
            self.program(name, file)


def kind_of(path):
    if path.suffix in (".cpp", ".h"):
        return "cpp"
    if path.name == "CMakeLists.txt" or path.suffix == ".cmake":
        return "cmake"
    if path.suffix in (".py", ".sh"):
        return path.suffix[1:]
    if path.suffix == "" and os.access(path, os.X_OK):
        first = path.read_bytes().partition(b"\n")[0]
        found = re.match(rb"#!.*\b(python|(?:ba)?sh\b)", first)
        return {b"python": "py"}.get(found[1], "sh") if found else ""
    return ""


def files_of(tree):
    """{name: path} of all files but what was built."""
    found = {}
    for folder, folders, names in os.walk(tree):
        folders[:] = sorted(name for name in folders if name not in (".git", "build", "out", "__pycache__"))
        for name in sorted(names):
            path = Path(folder) / name
            found[str(path.relative_to(tree))] = path
    return found


def calls_of(tree, everything):
    """What a tree calls; everything, or without what only `./test --all` runs."""
    calls = Calls()
    files = {name: path for name, path in files_of(tree).items() if not name.startswith(LEFT_OUT)}
    kinds = {name: kind_of(path) for name, path in files.items()}
    for name, kind in kinds.items():
        if kind == "sh":
            calls.functions |= commands_of(files[name].read_text())[1]
    for name, kind in kinds.items():
        if name in SCRIPTS_OF_ALL and not everything:
            continue
        text = files[name].read_text() if kind else ""
        if kind == "sh":
            calls.shell(text, name)
        elif kind == "py":
            calls.python(text, name)
        elif kind == "cpp" and name.startswith("tests/"):
            calls.cpp(text, name)
        elif kind == "cmake":
            calls.cmake(text, name)
        elif name == "docs/recipes.md":
            for block in re.findall(r"^```sh\n(.*?)^```$", files[name].read_text(), re.MULTILINE | re.DOTALL):
                calls.shell(block, name)
    own = {path.parent.name if path.stem == "__init__" else path.stem
           for name, path in files.items() if kinds[name] == "py"}
    calls.modules = {module: name for module, name in calls.modules.items()
                     if module not in own and module not in sys.stdlib_module_names}
    calls.programs = {program: name for program, name in calls.programs.items() if not program.startswith("tarvokol")}
    return calls


class Packages:
    """The packages that are installed here."""

    def __init__(self):
        fields = "${Package}\t${Status}\t${Essential}\t${Priority}\t${Pre-Depends}, ${Depends}\t${Provides}\n"
        told = subprocess.run(["dpkg-query", "-W", "-f", fields], capture_output=True, text=True, check=True)
        self.needs = {}
        self.minimal = set()
        self.providers = {}
        for line in told.stdout.splitlines():
            name, status, essential, priority, needs, provides = line.split("\t")
            if not status.endswith(" installed"):
                continue
            self.needs[name] = self.names(needs)
            if essential == "yes" or priority == "required" or name == "apt":
                self.minimal.add(name)
            for provided in self.names(provides):
                self.providers.setdefault(provided, set()).add(name)

    @staticmethod
    def names(relations):
        return {re.match(r"[\w.+-]+", part.strip())[0] for part in re.split(r"[,|]", relations) if part.strip()}

    def brought_by(self, names):
        """All packages that come with the ones named, a minimal system's included."""
        found, waiting = set(), list(names) + sorted(self.minimal)
        while waiting:
            name = waiting.pop()
            for package in {name} & self.needs.keys() or self.providers.get(name, set()):
                if package not in found:
                    found.add(package)
                    waiting += self.needs[package]
        return found

    @staticmethod
    def owners(paths):
        """{path: package}; a path is looked for under its other names, too, those of links and of a merged /usr."""
        asked = {}
        for path in paths:
            for name in {path, os.path.realpath(path)}:
                for spelling in {name, name.removeprefix("/usr")}:
                    # One program may serve under the names of several.
                    asked.setdefault(spelling, set()).add(path)
        told = subprocess.run(["dpkg-query", "-S", *asked], capture_output=True, text=True, check=False)
        owners = {}
        for line in told.stdout.splitlines():
            package, _, name = line.rpartition(": ")
            if name in asked and not line.startswith("diversion"):
                for path in asked[name]:
                    owners.setdefault(path, package.split(",")[0].partition(":")[0])
        return owners


def listed_packages(tree, everything):
    names = " ".join("$" + name for name in LISTS + (LISTS_OF_ALL if everything else []))
    told = subprocess.run(["bash", "-c", f". packaging/debian_packages.sh; echo {names}"], cwd=tree, capture_output=True,
                          text=True, check=True)
    return told.stdout.split()


def module_path(module):
    """Where the system's own Python has the module; another Python may be in front of it."""
    script = "import importlib.util, sys; spec = importlib.util.find_spec(sys.argv[1]); print(spec.origin if spec else '')"
    told = subprocess.run(["/usr/bin/python3", "-I", "-c", script, module], capture_output=True, text=True, check=True)
    return told.stdout.strip() or None


def faults(calls, packages, listed):
    """Lines on what is called and comes with none of the packages listed."""
    found = [f"{package}: is listed but not installed" for package in listed
             if package not in packages.needs and package not in packages.providers]
    brought = packages.brought_by(listed)
    places = {("program", name, file): path_of(name) for name, file in calls.programs.items()}
    places |= {("module", name, file): module_path(name) for name, file in calls.modules.items()}
    owners = packages.owners([path for path in places.values() if path])
    for (kind, name, file), path in sorted(places.items()):
        owner = owners.get(path)
        if owner not in brought:
            where = f"it is in the package {owner}" if owner else "no package here has it"
            found.append(f"{kind} {name}, called by {file}, comes with none of the packages listed: {where}")
    return found
