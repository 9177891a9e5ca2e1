# SPDX-License-Identifier: MIT
"""Where a source can be changed, and how all changes get into it at once, each behind a switch."""
import re


def bare(text, filler=" "):
    """The text with blanks for comments and directives, a filler for literals, so that places stay."""
    pattern = re.compile(
        r'//[^\n]*|/\*.*?\*/|(?P<literal>R"\(.*?\)"|"(?:\\.|[^"\\\n])*"'
        r"|(?<![0-9a-zA-Z])(?:u8|[uUL])?'(?:\\.|[^'\\\n])*')"
        r'|^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*|\b(?:static_assert|assert|checkInvariants)\([^;{]*;', re.S | re.M)
    return pattern.sub(
        lambda m: re.sub(r"[^\n]", filler if m["literal"] else " ", m.group()), text)


# --- mutants -------------------------------------------------------------------------------------

relational = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
              "==": ["!="], "!=": ["=="]}
arithmetic = {"+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "+=": ["-="], "-=": ["+="],
              "*=": ["/="], "/=": ["*="]}
boolean = {"true": ["false"], "false": ["true"], "&&": ["||"], "||": ["&&"]}
no_statement = re.compile(r"\s*(?:const|constexpr|auto|static|using|return|case|default|template|struct|class"
                          r"|enum|friend|extern|namespace|explicit|virtual|typedef|throw)\b")


class Mutant:
    """What stands instead of text[start:end] in a source."""

    def __init__(self, kind, name, text, start, end, other):
        self.kind, self.name, self.text = kind, name, text
        self.start, self.end, self.other = start, end, other
        self.id = -1
        first = text.rfind("\n", 0, start) + 1
        last = text.find("\n", end)
        last = len(text) if last < 0 else last
        self.line = text.count("\n", 0, start) + 1
        self.old = shown(text[first:last])
        self.new = shown(text[first:start] + other + text[end:last])

    def in_place(self):
        return self.text[:self.start] + self.other + self.text[self.end:]

    def __str__(self):
        return f"{self.name}:{self.line} ({self.kind})\n    {self.old}\n    {self.new}"


def shown(text):
    """Sources are read byte by byte, as the compiler counts its columns."""
    return " ".join(text.encode("latin-1").decode().split())


def closing(code, at):
    depth = 0
    for i in range(at, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return -1


def mutants_of(name, text):
    code = bare(text)

    def mutant(kind, start, end, other):
        return Mutant(kind, name, text, start, end, other)

    for kind, table, pattern in (
            ("relational", relational, r"(?<= )(?:<=|>=|==|!=|<|>)(?=\s)"),
            ("arithmetic", arithmetic, r"(?<= )(?:[-+*/]=|[-+*/%])(?=\s)"),
            ("boolean", boolean, r"\b(?:true|false)\b|(?<= )&&(?=\s)(?! [{;])|\|\|(?=\s)")):
        for m in re.finditer(pattern, code):
            if re.search(r"(?:template|operator) ?$", code[:m.start()].rsplit("\n", 1)[-1]):
                continue
            for other in table[m.group()]:
                yield mutant(kind, m.start(), m.end(), other)
    for m in re.finditer(r"\+\+|--", code):
        yield mutant("arithmetic", m.start(), m.end(), "--" if m.group() == "++" else "++")
    for m in re.finditer(r"(?<![\w.'])\d+(?:\.\d+)?(?![\w.'])", code):
        other = "1" if m.group() == "0" else "0" if m.group() == "1" else \
            str(int(m.group()) + 1) if m.group().isdigit() else m.group() + "1"
        yield mutant("constant", m.start(), m.end(), other)
    for m in re.finditer(r"\b(?:if|while) (\()", code):
        end = closing(code, m.start(1))
        condition = text[m.start(1) + 1:end]
        if end > 0 and ";" not in code[m.start(1):end] and not declaration.match(bare(condition)):
            yield mutant("negation", m.start(1) + 1, end, "!(" + condition + ")")
    at = 0
    before = ";"
    for line in code.splitlines(keepends=True):
        stripped = line.strip()
        start = at + len(line) - len(line.lstrip())
        at += len(line)
        if line.startswith("    ") and stripped.endswith(";") and (before[-1:] in ";{}):" or before == "else"):
            end = start + len(stripped)
            if re.fullmatch(r"(?:return|break|continue);", stripped):
                yield mutant("statement", start, end, ";")
            elif not no_statement.match(stripped) and stripped.count("(") == stripped.count(")"):
                if re.fullmatch(r"[\w.:>\[\]*()-]+(?:->|\.)?\w*\(.*\);", stripped):
                    yield mutant("call", start, end, ";")
                elif re.match(r"[\w.>\[\]*()-]+ (?:[-+*/|&]?=) ", stripped):
                    yield mutant("statement", start, end, ";")
        if stripped:
            before = stripped


# --- regions -------------------------------------------------------------------------------------

declaration = re.compile(
    r"(?!(?:return|throw|delete|new|goto|else|case)\b)"
    r"(?:(?:static|const|constexpr|thread_local|inline|mutable|unsigned|signed|long|typename)\s+)*"
    r"(?:auto|[A-Za-z_][\w:]*(?:<[^;=(){}]*>(?:::\w+)*)?)(?:\s+const)?(?:\s*[&*]\s*|\s+|(?<=auto)&& ?)"
    r"(?:\[[\w, ]+\]|\w+)\s*(?:=(?!=)|[;({\[])")
word = re.compile(r"[A-Za-z_]\w*")


class Region:
    """A statement, or an expression, that can stand there several times, a switch before each; the
    item is what is declared by it. A constexpr before it has to go."""

    def __init__(self, start, end, is_statement, item, edit):
        self.start, self.end, self.is_statement = start, end, is_statement
        self.item, self.edit = item, edit
        self.mutants, self.inner = [], []


class Reader:
    """Finds the regions of a source; what it takes for something else does not compile afterwards."""

    def __init__(self, text):
        self.code = bare(text, "_")
        self.regions = []
        self.match = {}
        opened = []
        for i, c in enumerate(self.code):
            if c in "([{":
                opened.append(i)
            elif c in ")]}":
                if not opened:
                    return
                self.match[i] = opened[-1]
                self.match[opened.pop()] = i
        if not opened:
            self.body(0, len(self.code), False)

    def skip(self, i, end):
        while i < end and self.code[i].isspace():
            i += 1
        return i

    def body(self, i, end, in_function):
        while (i := self.skip(i, end)) < end:
            i = self.item(i, end, in_function)

    def find(self, signs, i, end):
        """The first of the signs outside of brackets; = and : stand alone."""
        code = self.code
        while i < end:
            c = code[i]
            if c in signs:
                alone = c not in "=:" or code[i + 1] not in "=:" and code[i - 1] not in "=:<>!+-*/%&|^"
                if alone and not (c == "=" and code[:i].endswith("operator")):
                    return i
            i = self.match[i] + 1 if c in "([{" else i + 1
        return end

    def item(self, i, end, in_function):
        code = self.code
        if code[i] in ";)}]":
            return i + 1
        if code[i] == "{":
            self.body(i + 1, self.match[i], in_function)
            return self.match[i] + 1
        found = word.match(code, i)
        first = found.group() if found else ""
        if first in ("if", "while", "switch", "for", "catch"):
            begin = code.index("(", i)
            if first != "catch" and "constexpr" not in code[i:begin]:
                self.header(begin + 1, self.match[begin])
            return self.match[begin] + 1
        if first in ("else", "do", "try"):
            return found.end()
        if first in ("case", "default", "public", "private", "protected"):
            return self.find(":", i, end) + 1
        if first in ("using", "typedef", "friend"):
            return self.find(";", i, end) + 1
        if first == "template":
            return self.after_angles(code.index("<", i), end)
        if first in ("namespace", "struct", "class", "union", "enum", "extern"):
            stop = self.find("{;=(", i, end)
            if stop < end and code[stop] == "{":
                if first != "enum":
                    self.body(stop + 1, self.match[stop], False)
                return self.match[stop] + 1
        return self.other_item(i, end, in_function)

    def after_angles(self, i, end):
        depth = 0
        while i < end:
            depth += {"<": 1, ">": -1}.get(self.code[i], 0)
            i += 1
            if depth == 0:
                break
        return i

    def header(self, begin, end):
        """What stands in the brackets of if, for and the like."""
        self.lambdas(begin, end)
        pieces = []
        at = begin
        while (stop := self.find(";", at, end)) < end:
            pieces.append((at, stop))
            at = stop + 1
        pieces.append((at, end))
        for at, stop in pieces:
            colon = self.find(":", at, stop)
            if colon < stop and "?" not in self.code[at:colon]:
                self.add(colon + 1, stop, (at, stop))
            elif declaration.match(self.code, self.skip(at, stop), stop):
                self.add(self.find("=", at, stop) + 1, stop, (at, stop))
            else:
                self.add(at, stop, (at, stop))

    def other_item(self, i, end, in_function):
        """A function, a declaration or an expression."""
        code = self.code
        at = i
        has_arguments = is_assigned = False
        while at < end:
            at = self.find("({;=" if in_function else "({;=:", at, end)
            if at == end:
                return end
            c = code[at]
            if c == ";":
                break
            if c == ":" and has_arguments and not is_assigned:
                return self.initializers(at + 1, end)
            if c == "{" and has_arguments and not is_assigned and not in_function:
                self.body(at + 1, self.match[at], True)
                return self.match[at] + 1
            has_arguments |= c == "("
            is_assigned |= c == "="
            at = self.match[at] + 1 if c in "({" else at + 1
        self.lambdas(i, at)
        item = (i, at + 1)
        if in_function and not declaration.match(code, i):
            self.regions.append(Region(i, at + 1, True, item, None))
            return at + 1
        keyword = re.match(r"(?:(?:static|inline|thread_local)\s+)*(constexpr)\b", code[i:at])
        edit = (i + keyword.start(1), i + keyword.end(1), "const") if keyword else None
        assigned = self.find("=", i, at)
        if assigned < at:
            self.value(assigned + 1, at, item, edit)
        elif code[at - 1] in ")}":
            self.elements(self.match[at - 1] + 1, at - 1, item, edit)
        return at + 1

    def initializers(self, at, end):
        """Of a constructor, and its body."""
        code = self.code
        while True:
            group = self.find("({", at, end)
            if group == end:
                return end
            close = self.match[group]
            self.lambdas(group + 1, close)
            self.elements(group + 1, close, (group, close), None)
            at = self.skip(close + 1, end)
            if at == end or code[at] != ",":
                break
        if at < end and code[at] == "{":
            self.body(at + 1, self.match[at], True)
            return self.match[at] + 1
        return at

    def lambdas(self, i, end):
        while i < end:
            if self.code[i] == "{" and self.is_lambda(i):
                self.body(i + 1, self.match[i], True)
                i = self.match[i]
            i += 1

    def is_lambda(self, brace):
        before = self.code[:brace].rstrip()[-200:]
        if re.search(r"\b(?:mutable|noexcept)$|->\s*[\w:<>&* ,]+$", before):
            return True
        last = len(self.code[:brace].rstrip()) - 1
        if self.code[last] == ")":
            last = len(self.code[:self.match[last]].rstrip()) - 1
        if self.code[last] != "]":
            return False
        return re.search(r"[\w)\]]\s*$", self.code[:self.match[last]]) is None or \
            re.search(r"\breturn\s*$", self.code[:self.match[last]]) is not None

    def value(self, begin, end, item, edit):
        begin = self.skip(begin, end)
        if begin < end and self.code[begin] == "{" and self.match[begin] == len(self.code[:end].rstrip()) - 1:
            self.elements(begin + 1, self.match[begin], item, edit)
        else:
            self.add(begin, end, item, edit)

    def elements(self, begin, end, item, edit):
        pieces = []
        at = begin
        while at < end:
            stop = self.find(",", at, end)
            while stop < end and self.code.count("<", at, stop) > self.code.count(">", at, stop):
                stop = self.find(",", stop + 1, end)
            pieces.append((at, stop))
            at = stop + 1
        for at, stop in pieces:
            named = re.match(r"\s*\.\w+\s*=", self.code[at:stop])
            self.value(at + (named.end() if named else 0), stop, item, edit)

    def add(self, begin, end, item, edit=None):
        begin = self.skip(begin, end)
        while end > begin and self.code[end - 1].isspace():
            end -= 1
        if begin < end:
            self.regions.append(Region(begin, end, False, item, edit))


# --- all at once ---------------------------------------------------------------------------------

class SwitchedSource:
    """A source that holds many mutants. What can't be switched while the program runs, as the
    compiler tells, is taken out again: it is built by itself."""

    def __init__(self, name, text, mutants):
        self.name, self.text = name, text
        self.regions = []
        self.refused = set()  # do not compile
        self.alone = set(mutants)
        reader = Reader(text)
        self.blocks = [(begin, end) for begin, end in reader.match.items() if text[begin] == "{"]
        regions = sorted(reader.regions, key=lambda r: r.end - r.start)
        for mutant in mutants:
            for region in regions:
                if region.start <= mutant.start and mutant.end <= region.end:
                    region.mutants.append(mutant)
                    self.alone.remove(mutant)
                    break
        self.regions = [region for region in regions if region.mutants]

    def render(self):
        """The text to compile; keeps where what of it comes from."""
        self.out, self.length, self.origins = [], 0, []
        tops, around = [], []
        for region in sorted(self.regions, key=lambda r: (r.start, -r.end)):
            region.inner = []
            while around and around[-1].end < region.end:
                around.pop()
            (around[-1].inner if around else tops).append(region)
            around.append(region)
        self.edits = sorted({region.edit for region in self.regions if region.edit})
        self.put('#include "tests/mutants/switch.hpp" ', None)
        self.copy_around(tops, 0, len(self.text))
        self.rendered = "".join(self.out)
        return self.rendered

    def put(self, text, origin):
        self.origins.append((self.length, self.length + len(text), origin))
        self.out.append(text)
        self.length += len(text)

    def copy(self, begin, end):
        for start, stop, other in self.edits:
            if begin <= start and stop <= end:
                self.put(self.text[begin:start], begin)
                self.put(other, start)
                begin = stop
        self.put(self.text[begin:end], begin)

    def copy_around(self, regions, begin, end):
        for region in regions:
            self.copy(begin, region.start)
            self.put_region(region)
            begin = region.end
        self.copy(begin, end)

    def put_region(self, region):
        is_first = True
        for m in region.mutants:
            on = f"::mutants::isOn({m.id})"
            if region.is_statement:
                self.put(f"{'{ if' if is_first else ' else if'} ({on}) {{", region)
            else:
                self.put(f"{'(' if is_first else ''}{on} ? (", region)
            self.put(self.text[region.start:m.start] + m.other + self.text[m.end:region.end], m)
            self.put("}" if region.is_statement else ") : ", region)
            is_first = False
        self.put(" else {" if region.is_statement else "(", region)
        self.copy_around(region.inner, region.start, region.end)
        self.put("} }" if region.is_statement else "))", region)

    def origin(self, line, column):
        """A mutant, a region, or a place in the text."""
        at = 0
        for _ in range(line - 1):
            at = self.rendered.find("\n", at) + 1
        at += max(column - 1, 0)
        for begin, end, origin in self.origins:
            if begin <= at < end:
                return origin + at - begin if isinstance(origin, int) else origin
        return None

    def around(self, at):
        """The regions of the innermost item there."""
        items = [r.item for r in self.regions if r.item[0] <= at < r.item[1]]
        if not items:
            return []
        innermost = min(items, key=lambda item: item[1] - item[0])
        return [r for r in self.regions if r.item == innermost]

    def drop(self, regions):
        for region in regions:
            self.regions.remove(region)
            self.alone.update(region.mutants)

    def refuse(self, mutant):
        for region in self.regions:
            if mutant in region.mutants:
                region.mutants.remove(mutant)
                self.refused.add(mutant)
        self.regions = [region for region in self.regions if region.mutants]

    def learn(self, errors):
        """Each error is the places that its lines name, its own first. Takes out what is at fault; where
        that is not to be seen, what is near, in the end all."""
        dropped, refused, unexplained = set(), set(), []
        for error in errors:
            origins = [self.origin(*place) for place in error]
            found = next((origin for origin in origins if isinstance(origin, (Mutant, Region))), None)
            where = [origin for origin in origins if isinstance(origin, int)]
            items = [regions for regions in map(self.around, where[1:] + where[:1]) if regions]
            if isinstance(found, Mutant):
                refused.add(found)
            elif found:
                dropped.add(found)
            elif items:
                dropped.update(items[0])
            else:
                unexplained += where
        if not dropped and not refused:
            for at in unexplained:
                dropped.update(self.in_block(at))
        if not dropped and not refused:
            dropped.update(self.regions)
        self.drop(dropped)
        for mutant in refused:
            self.refuse(mutant)

    def in_block(self, at):
        """The regions of the innermost block there that has any."""
        for begin, end in sorted(self.blocks, key=lambda block: block[1] - block[0]):
            if begin <= at < end:
                inside = [r for r in self.regions if begin <= r.start < end]
                if inside:
                    return inside
        return []
