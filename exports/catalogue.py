"""Routine catalogue: parsing and validation.

A chapter's catalogue is ``<chapter>/routines.toml``.  Its grammar, in full:

    chapter = "sorting"                 # must equal the folder name; C++ namespace lbx::<chapter>

    [[routine]]
    name = "M01CAF"                     # upper case, letters and digits
    purpose = "..."                     # one line, required
    result = "real"                     # functions only: real | integer | logical
    args = ["real RV(M2) inout", "integer M1 in", ..., "ifail IFAIL"]
    extra = ["integer LSTATE in = state[0] @end"]    # traced-entry-only arguments
    layers = "full"                     # full (plain + traced + implementation) | direct
    impl = "M01CAFN"                    # implementation name; default NAME+"N" (full), NAME (direct)
    export_impl = false                 # also export the implementation with the Fortran convention

    [routine.procedure.F]               # one table per procedure argument
    result = "real"                     # omit for a subroutine
    args = ["real XX in", "integer IUSER(*) inout", "real RUSER(*) inout"]
    adapter = "C05AYF_FH"               # default NAME_<F>H

    [[routine.message]]                 # one per (error number, message code) pair
    id = "M2_LT_1"                      # C++ identifier of the message
    ifail = 1
    code = 99999
    records = [" ** On entry, M2 = {1}.", " ** Constraint: M2 >= 1."]

Argument strings are ``TYPE NAME[(DIM)] INTENT [notrace] [noimpl]``:

* TYPE is integer, real, logical, character*1, character*N, character*(*),
  procedure or ifail (the error indicator: last, no intent);
* DIM makes the argument an array: comma-separated Fortran extents over other
  argument names and integers, ``*`` for assumed size (``M2``, ``LDA,*``);
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
error exit's limit) of at most 80 characters, each beginning " ** ".  Every routine with IFAIL also gets
the frame's own (-999, 99991) allocation-failure message.
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
ID_RE = re.compile(r"^[A-Z][A-Z0-9_]*$")
ALLOC_MESSAGE = (-999, 99991, [" ** Dynamic memory allocation failed."])


@dataclass
class Arg:
    name: str
    type: str                     # integer real logical character procedure ifail
    intent: str = "in"
    dims: list[str] | None = None  # None: scalar
    char_len: str | None = None   # "1", "N" (digits) or "*"
    trace: bool = True
    impl: bool = True
    plain_value: str | None = None  # extras only
    position: str = "end"           # extras only
    proc: "Procedure | None" = None
    adapter_of: "Arg | None" = None   # set on the adapter argument a traced entry adds

    @property
    def is_array(self) -> bool:
        return self.dims is not None

    @property
    def is_char(self) -> bool:
        return self.type == "character"

    @property
    def lname(self) -> str:
        return self.name.lower()


@dataclass
class Procedure:
    name: str
    result: str | None
    args: list[Arg]
    adapter: str


@dataclass
class Message:
    id: str
    ifail: int
    code: int
    records: list[str]

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
    layers: str = "full"
    impl: str = ""
    export_impl: bool = False
    messages: list[Message] = field(default_factory=list)

    @property
    def has_ifail(self) -> bool:
        return any(a.type == "ifail" for a in self.args)

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
    path: Path
    routines: list[Routine]


def _fail(routine: str, text: str) -> CatalogueError:
    return CatalogueError(f"{routine}: {text}")


_ARG_RE = re.compile(
    r"^(?P<type>integer|real|logical|character\*(?:\d+|\(\*\))|procedure|ifail)\s+"
    r"(?P<name>[A-Z][A-Z0-9_]*)(?:\((?P<dims>[^)]*)\))?"
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
    flags = [w for w in words if w not in ("in", "out", "inout")]
    for f in flags:
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
        if not re.fullmatch(r"[A-Z0-9_+\-*() ]+", d):
            raise _fail(routine, f"extent '{d}' of {arg.name} is not an expression")


def _parse_procedure(rname: str, pname: str, table: dict) -> Procedure:
    unknown = set(table) - {"result", "args", "adapter"}
    if unknown:
        raise _fail(rname, f"procedure {pname}: unknown keys {sorted(unknown)}")
    result = table.get("result")
    if result is not None and result not in SCALAR_TYPES:
        raise _fail(rname, f"procedure {pname}: result must be one of {SCALAR_TYPES}")
    args = [parse_arg(a, rname) for a in table.get("args", [])]
    for a in args:
        if a.type in ("procedure", "ifail"):
            raise _fail(rname, f"procedure {pname}: argument {a.name} of type {a.type} not supported")
    adapter = table.get("adapter", f"{rname}_{pname}H")
    return Procedure(name=pname, result=result, args=args, adapter=adapter)


def parse_routine(entry: dict, chapter: str) -> Routine:
    name = entry.get("name", "<unnamed>")
    if not isinstance(name, str) or not NAME_RE.match(name):
        raise _fail(str(name), "routine name must be upper-case letters and digits")
    known = {"name", "purpose", "result", "args", "extra", "layers", "impl",
             "export_impl", "procedure", "message"}
    unknown = set(entry) - known
    if unknown:
        raise _fail(name, f"unknown keys {sorted(unknown)}")
    purpose = entry.get("purpose")
    if not purpose or not isinstance(purpose, str):
        raise _fail(name, "missing 'purpose'")
    if "args" not in entry:
        raise _fail(name, "missing 'args' (use [] for none)")
    result = entry.get("result")
    if result is not None and result not in SCALAR_TYPES:
        raise _fail(name, f"result must be one of {SCALAR_TYPES}")
    layers = entry.get("layers", "full")
    if layers not in ("full", "direct"):
        raise _fail(name, "layers must be 'full' or 'direct'")
    args = [parse_arg(a, name) for a in entry["args"]]
    extras = [parse_arg(a, name, extra=True) for a in entry.get("extra", [])]
    r = Routine(name=name, chapter=chapter, purpose=purpose, args=args, extras=extras,
                result=result, layers=layers,
                impl=entry.get("impl", name + "N" if layers == "full" else name),
                export_impl=bool(entry.get("export_impl", False)))

    all_args = args + extras
    names = [a.name for a in all_args]
    dup = {n for n in names if names.count(n) > 1}
    if dup:
        raise _fail(name, f"argument named twice: {sorted(dup)}")
    ifails = [i for i, a in enumerate(args) if a.type == "ifail"]
    if ifails and ifails != [len(args) - 1]:
        raise _fail(name, "IFAIL must be the last argument, once")
    if any(a.type == "ifail" for a in extras):
        raise _fail(name, "IFAIL cannot be an extra argument")
    if r.export_impl and (r.has_ifail or layers == "direct"):
        raise _fail(name, "export_impl needs a full routine without IFAIL")
    if layers == "direct" and (extras or r.has_ifail):
        raise _fail(name, "a direct routine has no extras and no IFAIL")
    scalar_names = {a.name for a in all_args if not a.is_array and a.type != "procedure"}
    for a in all_args:
        _check_dims(name, a, scalar_names)
        if a.plain_value == "dummy" and not a.is_array:
            raise _fail(name, f"extra {a.name}: 'dummy' needs an array")

    procs = entry.get("procedure", {})
    for a in all_args:
        if a.type == "procedure":
            if a.name not in procs:
                raise _fail(name, f"procedure argument {a.name} has no [routine.procedure.{a.name}] table")
            a.proc = _parse_procedure(name, a.name, procs[a.name])
    stray = set(procs) - {a.name for a in all_args if a.type == "procedure"}
    if stray:
        raise _fail(name, f"procedure tables without an argument: {sorted(stray)}")

    seen = set()
    for m in entry.get("message", []):
        for key in ("id", "ifail", "code", "records"):
            if key not in m:
                raise _fail(name, f"message without '{key}'")
        if not ID_RE.match(m["id"]):
            raise _fail(name, f"message id '{m['id']}' is not an upper-case identifier")
        msg = Message(id=m["id"], ifail=int(m["ifail"]), code=int(m["code"]),
                      records=list(m["records"]))
        if (msg.ifail, msg.code) in seen or msg.id in {x.id for x in r.messages}:
            raise _fail(name, f"message {msg.id} ({msg.ifail}, {msg.code}) defined twice")
        seen.add((msg.ifail, msg.code))
        if not 1 <= len(msg.records) <= 12:
            raise _fail(name, f"message {msg.id} needs 1 to 12 records")
        for rec in msg.records:
            if not rec.startswith(" ** "):
                raise _fail(name, f"message {msg.id}: record '{rec}' must begin ' ** '")
            if len(re.sub(r"\{\d+\}", "", rec)) > 80:
                raise _fail(name, f"message {msg.id}: record longer than 80 characters")
        if msg.ifail == 0:
            raise _fail(name, f"message {msg.id}: error number 0 means success")
        r.messages.append(msg)
    if r.messages and not r.has_ifail:
        raise _fail(name, "messages given but no IFAIL argument")
    if r.has_ifail:
        ids = {m.id for m in r.messages}
        if (ALLOC_MESSAGE[0], ALLOC_MESSAGE[1]) not in seen and "ALLOC_FAILED" not in ids:
            r.messages.append(Message("ALLOC_FAILED", *ALLOC_MESSAGE))
    return r


def load_chapter(path: Path) -> Chapter:
    path = Path(path)
    try:
        data = tomllib.loads(path.read_text())
    except tomllib.TOMLDecodeError as e:
        raise CatalogueError(f"{path}: {e}") from e
    chapter = data.get("chapter")
    if chapter != path.parent.name:
        raise CatalogueError(f"{path}: 'chapter' must be '{path.parent.name}'")
    routines = [parse_routine(e, chapter) for e in data.get("routine", [])]
    names = [r.name for r in routines]
    dup = {n for n in names if names.count(n) > 1}
    if dup:
        raise CatalogueError(f"{path}: routines defined twice: {sorted(dup)}")
    return Chapter(name=chapter, path=path, routines=routines)
