"""Routine catalogue: parsing and validation.

A chapter's catalogue is one or more files ``<chapter>/routines.toml`` and
``<chapter>/routines-<part>.toml``; each file becomes its own translation unit,
and all files of a chapter share one namespace ``lbx::<chapter>``, one header
and the chapter's shared messages and standard prototypes.  The grammar, in full:

    chapter = "random"                  # must equal the folder name

    [messages]                          # record templates shared by the chapter,
    STATE_CORRUPT = [" ** On entry, STATE vector has been corrupted or not initialized."]

    [standard.DGETRF]                   # prototype of an external standard routine
    purpose = "LU factorization of a general matrix"
    args = ["integer M in", ..., "integer INFO out"]
    result = "real"                     # functions only

    forward = ["DGETRF"]                # exported standard names: each only calls the
                                        # external routine of that name

    [[paired]]                          # a chapter routine paired with a standard routine:
    name = "F07ADF"                     #   F07ADF(args) -> F07ADFT(CALL_VENDOR, SORDER, args)
    standard = "DGETRF"                 #   pairing name "F07ADF/DGETRF" (NAME_pairing)
    own = "impl"                        # own path: impl (F07ADFN, default) | external |
                                        #   private: lbx_own_<standard>_, the library's private
                                        #   routine with the standard's machine argument list
                                        #   (and SRNAME with append_name)
    option_length = 1                   # plain entry passes CHARACTER options with length 1
    append_name = true                  # traced list ends in SRNAME, the pairing name
    # (one row each: paired = [{name = "...", standard = "..."}, ...] is the same thing)

    [[routine]]
    name = "M01CAF"                     # upper case, letters and digits
    purpose = "..."                     # one line, required
    result = "real"                     # functions only: real | integer | logical
    args = ["real RV(M2) inout", "integer M1 in", ..., "ifail IFAIL"]
    extra = ["integer LSTATE in = state[0] @end"]    # traced-entry-only arguments
    layers = "full"                     # full (plain + traced + implementation) | direct
    impl = "M01CAFN"                    # implementation name; default NAME+"N" (full), NAME (direct)
    export_impl = false                 # also export the implementation

    [routine.procedure.F]               # one table per procedure argument
    result = "real"                     # omit for a subroutine
    args = ["real XX in", "integer IUSER(*) inout", "real RUSER(*) inout"]
    adapter = "C05AYF_FH"               # default NAME_<F>H
    through = ["integer IUSER(*) inout"]  # arguments the adapter and the callable take
                                        # after the user's own and the user routine does
                                        # not (the plain entry's adapter drops them;
                                        # a traced caller's adapter may pass them on)

    [[routine.message]]                 # one per (error number, message code) pair
    id = "M2_LT_1"                      # C++ identifier of the message (NAME_msg::M2_LT_1)
    ifail = 1
    code = 99999
    records = [" ** On entry, M2 = {1}.", " ** Constraint: M2 >= 1."]
    # without records: the chapter's shared [messages] template of that id
    ifail_range = "1..N"                # optional: the error number depends on the
                                        # arguments; ifail is its least value and any
                                        # larger one belongs to this message too (the
                                        # text is what the documentation shows)

Argument strings are ``TYPE NAME[(DIM)] INTENT [notrace] [noimpl]``:

* TYPE is integer, real, complex (COMPLEX*16), single (REAL), csingle
  (COMPLEX), logical, character*1,
  character*N, character*(*), procedure or ifail (the error indicator: last,
  no intent);
* DIM makes the argument an array: comma-separated Fortran extents over other
  argument names and integers, ``*`` for assumed size (``M2``, ``LDA,*``); a
  character array (``character*(*) CH(M2) in``) reaches the implementation as
  ``lbx::CharArray`` (first character and element length; a declared length
  N is the element length whatever the caller passes), not allowed among a
  procedure's arguments;
* INTENT is in, out or inout (a procedure has none);
* ``notrace`` keeps the argument out of the trace, ``noimpl`` keeps it out of
  the implementation's parameter list (a dummy argument that is never read).

An extra argument ends in ``= VALUE [@first|@end]``.  VALUE is the C++
expression the plain entry passes (its own arguments are visible as pointers
named in lower case), ``dummy`` for a local one-element array, or, for a
procedure, the catalogue name of the exported routine to pass.  ``@first``
puts it at the head of the traced list, ``@end`` (default) directly before
ERRBUF.

Record templates insert value field k with ``{k}``; at most 12 records (the
error exit's limit) of at most 80 characters, each beginning " ** ".  Every
routine with IFAIL also gets the frame's own (-999, 99991) allocation-failure
message.  Every refusal names the routine (or the file) it concerns.
"""

from __future__ import annotations

import re
import tomllib
from dataclasses import dataclass, field
from pathlib import Path


class CatalogueError(Exception):
    """A malformed or incomplete entry; the text names the routine."""


SCALAR_TYPES = ("integer", "real", "logical")
NAME_RE = re.compile(r"^[A-Z][A-Z0-9_]*$")
ALLOC_MESSAGE = (-999, 99991, [" ** Dynamic memory allocation failed."])
FILE_RE = re.compile(r"^routines(-[a-z0-9_]+)?\.toml$")


@dataclass
class Arg:
    name: str
    type: str  # integer real complex single csingle logical character procedure ifail
    intent: str = "in"
    dims: list[str] | None = None  # None: scalar
    char_len: str | None = None  # "1", "N" (digits) or "*"
    trace: bool = True
    impl: bool = True
    plain_value: str | None = None  # extras only
    position: str = "end"  # extras only
    proc: "Procedure | None" = None

    @property
    def is_array(self) -> bool:
        return self.dims is not None

    @property
    def is_char(self) -> bool:
        return self.type == "character"

    @property
    def is_option(self) -> bool:
        """A CHARACTER*1 scalar input: the implementation sees one char."""
        return self.is_char and self.char_len == "1" and not self.is_array and self.intent == "in"

    @property
    def lname(self) -> str:
        return self.name.lower()


@dataclass
class Procedure:
    name: str
    result: str | None
    args: list[Arg]
    adapter: str
    through: list[Arg] = field(default_factory=list)


@dataclass
class Message:
    id: str
    ifail: int
    code: int
    records: list[str]
    ifail_range: str | None = None  # documented range: ifail is its least value

    @property
    def ranged(self) -> bool:
        return self.ifail_range is not None

    @property
    def nvalues(self) -> int:
        slots = [int(m) for r in self.records for m in re.findall(r"\{(\d+)\}", r)]
        return max(slots, default=0)


@dataclass
class Routine:
    name: str
    chapter: str
    purpose: str
    args: list[Arg]
    extras: list[Arg] = field(default_factory=list)
    result: str | None = None
    layers: str = "full"  # full | direct | paired | forward
    impl: str = ""
    export_impl: bool = False
    messages: list[Message] = field(default_factory=list)
    source: str = "routines"  # the catalogue file's stem: its translation unit
    standard: str | None = None  # paired and forward: the external routine
    own: str = "impl"  # paired: impl | external | private
    option_length: int | None = None  # paired: hidden length passed for options

    @property
    def has_ifail(self) -> bool:
        return any(a.type == "ifail" for a in self.args)

    @property
    def pairing(self) -> str:
        return f"{self.name}/{self.standard}"

    @property
    def visible(self) -> list[Arg]:
        """Documented arguments without IFAIL."""
        return [a for a in self.args if a.type != "ifail"]

    def traced_args(self) -> list[Arg]:
        """Traced entry's list without ERRBUF/IFAIL, procedures not yet expanded."""
        first = [a for a in self.extras if a.position == "first"]
        end = [a for a in self.extras if a.position == "end"]
        return first + self.visible + end

    def impl_args(self) -> list[Arg]:
        return [a for a in self.traced_args() if a.impl]

    def procedures(self) -> list[Procedure]:
        return [a.proc for a in self.traced_args() if a.type == "procedure"]


@dataclass
class Chapter:
    name: str
    paths: list[Path]
    routines: list[Routine]

    @property
    def sources(self) -> list[str]:
        """Catalogue file stems in order: one translation unit each."""
        return [p.stem for p in self.paths]


def _fail(routine: str, text: str) -> CatalogueError:
    return CatalogueError(f"{routine}: {text}")


_ARG_RE = re.compile(
    r"^(?P<type>integer|real|complex|single|csingle|logical|character\*(?:\d+|\(\*\))|procedure|ifail)\s+"
    r"(?P<name>[A-Z][A-Z0-9_]*)(?:\((?P<dims>(?:[^()]|\([^()]*\))*)\))?"
    r"(?P<rest>(?:\s+\S+)*)\s*$")


def parse_arg(text: str, routine: str, extra: bool = False) -> Arg:
    body, value, position = text, None, "end"
    if extra:
        # Trailing words after the value: @first/@end and the flags.
        words, tail = text.split(), []
        while words and (words[-1] in ("@first", "@end", "noimpl", "notrace")):
            tail.insert(0, words.pop())
        m = re.match(r"^(.*?)\s*=\s*(.+?)\s*$", " ".join(words))
        if not m:
            raise _fail(routine, f"extra argument '{text}' needs '= VALUE'")
        body, value = m.group(1), m.group(2)
        position = "first" if "@first" in tail else "end"
        body += "".join(" " + w for w in tail if not w.startswith("@"))
    m = _ARG_RE.match(body.strip())
    if not m:
        raise _fail(routine, f"cannot read argument '{text}'")
    typ, name = m.group("type"), m.group("name")
    if name.endswith("_") or name in ("ERRBUF",):
        # Generated locals end in "_"; ERRBUF belongs to the traced entry.
        raise _fail(routine, f"argument name {name} is reserved")
    words = m.group("rest").split()
    arg = Arg(name=name, type=typ, plain_value=value, position=position)
    if typ.startswith("character"):
        arg.type = "character"
        arg.char_len = typ.split("*", 1)[1].strip("()")
    if m.group("dims") is not None:
        dims = [d.strip() for d in m.group("dims").split(",")]
        if not all(dims):
            raise _fail(routine, f"empty extent in '{text}'")
        arg.dims = dims
    intents = [w for w in words if w in ("in", "out", "inout")]
    for f in (w for w in words if w not in ("in", "out", "inout")):
        if f == "notrace":
            arg.trace = False
        elif f == "noimpl":
            arg.impl = False
        else:
            raise _fail(routine, f"unknown word '{f}' in argument '{text}'")
    if arg.type in ("ifail", "procedure"):
        if intents:
            raise _fail(routine, f"{arg.type} argument {name} takes no intent")
        arg.intent = "inout" if arg.type == "ifail" else "in"
    else:
        if len(intents) != 1:
            raise _fail(routine, f"argument {name} needs exactly one intent (in, out, inout)")
        arg.intent = intents[0]
    if arg.type == "procedure" and arg.dims is not None:
        raise _fail(routine, f"procedure {name} cannot be an array")
    return arg


def _check_dims(routine: str, arg: Arg, names: set[str]) -> None:
    for d in arg.dims or []:
        if d == "*":
            continue
        for ident in re.findall(r"[A-Za-z_][A-Za-z0-9_]*", d):
            if ident not in names:
                raise _fail(routine, f"extent '{d}' of {arg.name} names unknown argument {ident}")
        if not re.fullmatch(r"[A-Z0-9_+\-*/() ]+", d):
            raise _fail(routine, f"extent '{d}' of {arg.name} is not an expression")


def _check_keys(name: str, table: dict, known: set[str], what: str = "") -> None:
    unknown = set(table) - known
    if unknown:
        raise _fail(name, f"{what}unknown keys {sorted(unknown)}")


def _check_result(name: str, result) -> None:
    if result is not None and result not in SCALAR_TYPES:
        raise _fail(name, f"result must be one of {SCALAR_TYPES}")


def _parse_procedure(rname: str, pname: str, table: dict) -> Procedure:
    _check_keys(rname, table, {"result", "args", "adapter", "through"}, f"procedure {pname}: ")
    result = table.get("result")
    if result is not None and result not in SCALAR_TYPES:
        raise _fail(rname, f"procedure {pname}: result must be one of {SCALAR_TYPES}")
    args = [parse_arg(a, rname) for a in table.get("args", [])]
    through = [parse_arg(a, rname) for a in table.get("through", [])]
    for a in args + through:
        if a.type in ("procedure", "ifail") or (a.is_char and a.is_array):
            kind = "character array" if a.is_char else f"type {a.type}"
            raise _fail(rname, f"procedure {pname}: argument {a.name} of {kind} not supported")
    adapter = table.get("adapter", f"{rname}_{pname}H")
    return Procedure(name=pname, result=result, args=args, adapter=adapter, through=through)


def _parse_message(name: str, m: dict, shared: dict[str, list[str]]) -> Message:
    _check_keys(name, m, {"id", "ifail", "code", "records", "ifail_range"}, "message: ")
    for key in ("id", "ifail", "code"):
        if key not in m:
            raise _fail(name, f"message without '{key}'")
    if not NAME_RE.match(m["id"]):
        raise _fail(name, f"message id '{m['id']}' is not an upper-case identifier")
    if "records" in m:
        records = list(m["records"])
    elif m["id"] in shared:
        records = list(shared[m["id"]])
    else:
        raise _fail(name, f"message {m['id']} has no records and the chapter shares none of that id")
    msg = Message(id=m["id"], ifail=int(m["ifail"]), code=int(m["code"]), records=records,
                  ifail_range=m.get("ifail_range"))
    if msg.ifail == 0:
        raise _fail(name, f"message {msg.id}: error number 0 means success")
    if msg.ranged and (not isinstance(msg.ifail_range, str) or not msg.ifail_range or msg.ifail < 1):
        raise _fail(name, f"message {msg.id}: ifail_range needs a text and a positive least ifail")
    _check_records(f"{name}: message {msg.id}", records)
    return msg


def _check_records(where: str, records: list[str]) -> None:
    if not 1 <= len(records) <= 12:
        raise CatalogueError(f"{where} needs 1 to 12 records")
    for rec in records:
        if not rec.startswith(" ** "):
            raise CatalogueError(f"{where}: record '{rec}' must begin ' ** '")
        if len(re.sub(r"\{\d+\}", "", rec)) > 80:
            raise CatalogueError(f"{where}: record longer than 80 characters")


def _validate(r: Routine) -> None:
    """Checks that hold for every kind of routine."""
    name = r.name
    all_args = r.args + r.extras
    names = [a.name for a in all_args]
    dup = {n for n in names if names.count(n) > 1}
    if dup:
        raise _fail(name, f"argument named twice: {sorted(dup)}")
    ifails = [i for i, a in enumerate(r.args) if a.type == "ifail"]
    if ifails and ifails != [len(r.args) - 1]:
        raise _fail(name, "IFAIL must be the last argument, once")
    if any(a.type == "ifail" for a in r.extras):
        raise _fail(name, "IFAIL cannot be an extra argument")
    scalar_names = {a.name for a in all_args if not a.is_array and a.type != "procedure"}
    for a in all_args:
        _check_dims(name, a, scalar_names)
        if a.plain_value == "dummy" and not a.is_array:
            raise _fail(name, f"extra {a.name}: 'dummy' needs an array")
    seen: set[tuple[int, int]] = set()
    for m in r.messages:
        if (m.ifail, m.code) in seen or [x.id for x in r.messages].count(m.id) > 1:
            raise _fail(name, f"message {m.id} ({m.ifail}, {m.code}) defined twice")
        seen.add((m.ifail, m.code))
    if r.messages and not r.has_ifail:
        raise _fail(name, "messages given but no IFAIL argument")
    if r.has_ifail and (ALLOC_MESSAGE[0], ALLOC_MESSAGE[1]) not in seen:
        r.messages.append(Message("ALLOC_FAILED", *ALLOC_MESSAGE))


def parse_routine(entry: dict, chapter: str, shared: dict[str, list[str]] | None = None,
                  source: str = "routines") -> Routine:
    name = entry.get("name", "<unnamed>")
    if not isinstance(name, str) or not NAME_RE.match(name):
        raise _fail(str(name), "routine name must be upper-case letters and digits")
    _check_keys(name, entry, {"name", "purpose", "result", "args", "extra", "layers", "impl",
                              "export_impl", "procedure", "message"})
    purpose = entry.get("purpose")
    if not purpose or not isinstance(purpose, str):
        raise _fail(name, "missing 'purpose'")
    if "args" not in entry:
        raise _fail(name, "missing 'args' (use [] for none)")
    result = entry.get("result")
    _check_result(name, result)
    layers = entry.get("layers", "full")
    if layers not in ("full", "direct"):
        raise _fail(name, "layers must be 'full' or 'direct'")
    args = [parse_arg(a, name) for a in entry["args"]]
    extras = [parse_arg(a, name, extra=True) for a in entry.get("extra", [])]
    r = Routine(name=name, chapter=chapter, purpose=purpose, args=args, extras=extras,
                result=result, layers=layers, source=source,
                impl=entry.get("impl", name + "N" if layers == "full" else name),
                export_impl=bool(entry.get("export_impl", False)))
    if r.export_impl and (r.has_ifail or layers == "direct"):
        raise _fail(name, "export_impl needs a full routine without IFAIL")
    if layers == "direct" and (extras or r.has_ifail):
        raise _fail(name, "a direct routine has no extras and no IFAIL")

    procs = entry.get("procedure", {})
    for a in args + extras:
        if a.type == "procedure":
            if a.name not in procs:
                raise _fail(name, f"procedure argument {a.name} has no [routine.procedure.{a.name}] table")
            a.proc = _parse_procedure(name, a.name, procs[a.name])
    stray = set(procs) - {a.name for a in args + extras if a.type == "procedure"}
    if stray:
        raise _fail(name, f"procedure tables without an argument: {sorted(stray)}")
    r.messages = [_parse_message(name, m, shared or {}) for m in entry.get("message", [])]
    _validate(r)
    return r


@dataclass
class Standard:
    name: str
    purpose: str
    args: list[Arg]
    result: str | None


def _parse_standard(name: str, table: dict) -> Standard:
    if not NAME_RE.match(name):
        raise _fail(name, "standard name must be upper-case letters, digits and _")
    _check_keys(name, table, {"purpose", "args", "result"}, "standard: ")
    if not table.get("purpose"):
        raise _fail(name, "standard routine without 'purpose'")
    _check_result(name, table.get("result"))
    args = [parse_arg(a, name) for a in table.get("args", [])]
    for a in args:
        if a.type in ("procedure", "ifail"):
            raise _fail(name, f"a standard routine cannot take {a.type} argument {a.name}")
    return Standard(name, table["purpose"], args, table.get("result"))


def _copy_args(args: list[Arg]) -> list[Arg]:
    return [Arg(**{k: getattr(a, k) for k in a.__dataclass_fields__}) for a in args]


def parse_paired(row: dict, chapter: str, standards: dict[str, Standard], source: str) -> Routine:
    name = row.get("name", "<unnamed>")
    if not isinstance(name, str) or not NAME_RE.match(name):
        raise _fail(str(name), "routine name must be upper-case letters and digits")
    _check_keys(name, row, {"name", "standard", "own", "option_length", "append_name", "purpose"},
                "paired: ")
    std = standards.get(row.get("standard", ""))
    if std is None:
        raise _fail(name, f"paired with '{row.get('standard')}', which has no [standard] prototype")
    own = row.get("own", "impl")
    if own not in ("impl", "external", "private"):
        raise _fail(name, "own must be 'impl', 'external' or 'private'")
    option_length = row.get("option_length")
    if option_length not in (None, 1):
        raise _fail(name, "option_length can only be 1")
    extras = [parse_arg("logical CALL_VENDOR in = 0 @first", name, extra=True),
              parse_arg("integer SORDER in = 1 @first noimpl", name, extra=True)]
    r = Routine(name=name, chapter=chapter, purpose=row.get("purpose", std.purpose),
                args=_copy_args(std.args), extras=extras, result=std.result, layers="paired",
                impl=name + "N", source=source, standard=std.name, own=own,
                option_length=option_length)
    extras[0].impl = False
    if row.get("append_name", False):
        r.extras.append(parse_arg(f'character*(*) SRNAME in = "{r.pairing}" @end', name, extra=True))
    _validate(r)
    return r


def forward_routine(std: Standard, chapter: str, source: str) -> Routine:
    r = Routine(name=std.name, chapter=chapter, purpose=std.purpose, args=_copy_args(std.args),
                result=std.result, layers="forward", impl=std.name, source=source,
                standard=std.name)
    _validate(r)
    return r


def _read(path: Path) -> dict:
    try:
        return tomllib.loads(path.read_text())
    except tomllib.TOMLDecodeError as e:
        raise CatalogueError(f"{path}: {e}") from e


def load_chapter(paths) -> Chapter:
    """One chapter from its catalogue files (a single path is accepted too)."""
    paths = [Path(p) for p in ([paths] if isinstance(paths, (str, Path)) else paths)]
    folder = paths[0].parent
    datas = []
    for p in paths:
        if p.parent != folder:
            raise CatalogueError(f"{p}: every catalogue file of a chapter lies in {folder}")
        if not FILE_RE.match(p.name):
            raise CatalogueError(f"{p}: a catalogue file is routines.toml or routines-<part>.toml")
        data = _read(p)
        if data.get("chapter") != folder.name:
            raise CatalogueError(f"{p}: 'chapter' must be '{folder.name}'")
        unknown = set(data) - {"chapter", "messages", "standard", "forward", "paired", "routine"}
        if unknown:
            raise CatalogueError(f"{p}: unknown keys {sorted(unknown)}")
        datas.append((p, data))
    chapter = folder.name

    shared: dict[str, list[str]] = {}
    standards: dict[str, Standard] = {}
    for p, data in datas:
        for mid, records in data.get("messages", {}).items():
            if mid in shared:
                raise CatalogueError(f"{p}: shared message {mid} defined twice")
            if not NAME_RE.match(mid):
                raise CatalogueError(f"{p}: shared message id '{mid}' is not an upper-case identifier")
            _check_records(f"{p}: shared message {mid}", list(records))
            shared[mid] = list(records)
        for sname, table in data.get("standard", {}).items():
            if sname in standards:
                raise CatalogueError(f"{p}: standard routine {sname} defined twice")
            standards[sname] = _parse_standard(sname, table)

    routines: list[Routine] = []
    for p, data in datas:
        stem = p.stem
        routines += [parse_routine(e, chapter, shared, stem) for e in data.get("routine", [])]
        routines += [parse_paired(e, chapter, standards, stem) for e in data.get("paired", [])]
        for sname in data.get("forward", []):
            if sname not in standards:
                raise _fail(sname, "forwarded, but has no [standard] prototype")
            routines.append(forward_routine(standards[sname], chapter, stem))
    names = [r.name for r in routines]
    dup = {n for n in names if names.count(n) > 1}
    if dup:
        raise CatalogueError(f"{folder}: routines defined twice: {sorted(dup)}")
    used = {m.id for r in routines for m in r.messages}
    unused = sorted(set(shared) - used)
    if unused:
        raise CatalogueError(f"{folder}: shared messages no routine uses: {unused}")
    return Chapter(name=chapter, paths=paths, routines=routines)


def group_by_chapter(paths) -> list[list[Path]]:
    """Catalogue files grouped by their chapter folder, in first-seen order."""
    groups: dict[Path, list[Path]] = {}
    for p in map(Path, paths):
        groups.setdefault(p.parent, []).append(p)
    return [sorted(g, key=lambda p: (p.name != "routines.toml", p.name)) for g in groups.values()]
