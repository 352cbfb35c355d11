"""The entry model: what every emitter prints, computed once per convention.

Stage one of the generator.  For one calling convention, each catalogue
routine becomes a ``RoutineModel``: its exported entries (plain, traced,
adapters, direct exports, forwards), each with its symbols and decorations,
its typed machine-level parameters in call order with the hidden lengths
placed by the convention, and what its body does (the traced entry it calls
and with what, the trace lines, the implementation call, the dispatch between
the external routine and the own path); its procedure types; its message rows.
Stage two, the emitters (``emit_cpp``, ``emit_public``), only print models.

Types are language-neutral ``Type`` values (a catalogue base type plus how it
is passed); each emitter spells them in its own language.
"""

from __future__ import annotations

import re
from dataclasses import dataclass, field

from catalogue import Arg, Chapter, Message, Procedure, Routine
from convention import Convention, Slot


@dataclass(frozen=True)
class Type:
    """A machine-level parameter type."""
    kind: str  # pointer | length | proc | adapter | fn
    base: str = ""  # integer real complex logical character (pointer); proc type name
    const: bool = False
    proc: str = ""  # proc, adapter, fn: the procedure argument's name

    @property
    def routine(self) -> str:
        """proc, adapter, fn: the routine that owns the procedure type."""
        return self.base[:-len(self.proc) - 1]


@dataclass
class Param:
    name: str
    type: Type
    slot: Slot | None = None


@dataclass
class Local:
    """A local variable of a plain entry: what it passes for an extra argument."""
    base: str  # catalogue type
    declarator: str
    init: str
    const: bool = True


@dataclass
class TraceLine:
    kind: str  # integer real complex logical character array procedure
    label: str  # the argument's name as traced
    expr: str  # C++ expression of the value


@dataclass
class ProcModel:
    """A user procedure: the user's routine, its adapter, the callable."""
    routine: str
    proc: Procedure
    typename: str  # C05AYF_F: C05AYF_FFn, C05AYF_FAdapter, C05AYF_FProc
    result: str | None
    fn_params: list[Param]
    adapter_params: list[Param]  # the user's routine first
    callable_params: list[tuple[Arg, str]]  # (arg, C++ name) the implementation passes
    adapter_call: list[str]  # the callable's arguments to the adapter, machine order
    fn_call: list[str]  # the callable's arguments to the user's routine, machine order


@dataclass
class Entry:
    name: str  # catalogue name: S14AAF, S14AAFT, C05AYF_FH, X02AJFN, DGETRF
    layer: str  # plain | traced | adapter | direct | forward
    cname: str  # the C++ identifier defined
    exports: list[str]
    nbytes: int
    result: str | None
    params: list[Param]
    purpose: str = ""
    # plain: the traced entry's call
    callee: str = ""
    call_args: list[str] = field(default_factory=list)
    locals: list[Local] = field(default_factory=list)
    ifail: str = ""  # the IFAIL parameter's name, when the routine has one
    # plain: the traced entry's work without its trace switch, called with the
    # plain entry's own indicator writer (empty when the traced entry has none)
    runner: str = ""
    # traced and direct: the implementation call; traced: the trace
    impl_call: str = ""
    trace_in: list[TraceLine] = field(default_factory=list)
    trace_out: list[TraceLine] = field(default_factory=list)
    # traced entries of paired routines and forwards: the external routine
    external: "External | None" = None
    vendor_flag: str = ""  # paired: the CALL_VENDOR parameter
    own: "External | None" = None  # paired, private: the own path's routine


@dataclass
class External:
    """A call of an external standard routine."""
    symbol: str  # dgetrf_
    result: str | None
    params: list[Param]  # its machine order
    call_args: list[str]
    lookup: bool  # resolved at run time (else linked)


@dataclass
class RoutineModel:
    routine: Routine
    entries: list[Entry]
    procs: list[ProcModel]
    messages: list[Message]
    impl_params: list[tuple[Arg, str]]  # (arg, C++ parameter name), fail excluded
    impl_has_fail: bool


# ---------------------------------------------------------------- slots

def routine_slots(r: Routine, layer: str) -> list[Slot]:
    """Argument slots of a layer: 'plain', 'traced' or 'direct'."""
    args = r.traced_args() if layer == "traced" else r.visible
    out: list[Slot] = []
    for a in args:
        if a.type == "procedure":
            out.append(Slot(a.lname, a, "proc"))
            if layer == "traced":
                out.append(Slot(a.lname + "h", a, "adapter"))
        else:
            out.append(Slot(a.lname, a, "value"))
    if r.has_ifail and layer != "direct":
        if layer == "traced":
            out.append(Slot("errbuf", None, "errbuf"))
        ifail = r.args[-1]
        out.append(Slot(ifail.lname, ifail, "ifail"))
    return out


def procedure_slots(p: Procedure, with_fn: bool, through: bool = False) -> list[Slot]:
    """The user routine's slots; with_fn: the adapter's (fn first, then the
    pass-through arguments); through alone: what the callable hands the adapter."""
    out = [Slot("fn", None, "fnptr")] if with_fn else []
    extra = p.through if (with_fn or through) else []
    return out + [Slot(a.lname, a, "value") for a in p.args + extra]


def slot_type(s: Slot, typename) -> Type:
    if s.role == "errbuf":
        return Type("pointer", "character")
    if s.role == "ifail":
        return Type("pointer", "integer")
    if s.role in ("proc", "adapter"):
        return Type(s.role, typename(s.arg.proc), proc=s.arg.proc.name)
    if s.role == "fnptr":
        return Type("fn")
    a = s.arg
    return Type("pointer", a.type, a.intent == "in")


def machine_params(conv_order, slots: list[Slot], typename, fn: Procedure | None = None) -> list[Param]:
    out = []
    for kind, s in conv_order(slots):
        if kind == "len":
            out.append(Param(f"{s.name}_len", Type("length"), s))
        elif s.role == "fnptr":
            out.append(Param(s.name, Type("fn", typename(fn), proc=fn.name), s))
        else:
            out.append(Param(s.name, slot_type(s, typename), s))
    return out


# ---------------------------------------------------------------- implementation parameters

def dim_length(a: Arg) -> str:
    """C++ expression for the element count of an array argument, -1 if assumed size."""
    if any(d == "*" for d in a.dims):
        return "-1L"
    factors = []
    for d in a.dims:
        e = re.sub(r"[A-Za-z_][A-Za-z0-9_]*", lambda m: f"(long)(*{m.group(0).lower()})", d)
        factors.append(f"({e})")
    return " * ".join(factors)


def impl_value(a: Arg, typename, conv: Convention) -> str:
    """Expression turning machine-level argument a into the implementation's parameter."""
    n = a.lname
    if a.type == "procedure":
        # Whether the adapter is the library's own, which only calls the user's
        # routine: the callable then skips it.
        return f"{typename(a.proc)}Proc{{{n}, {n}h, {n}h == &{conv.cname(a.proc.adapter)}}}"
    if a.is_char and a.is_array:
        const = "const char" if a.intent == "in" else "char"
        return f"lbx::CharArray<{const}>{{{n}, {n + '_len' if a.char_len == '*' else a.char_len}}}"
    if a.is_char:
        decl = "0" if a.char_len == "*" else a.char_len
        if a.intent != "in":
            return f"lbx::frame::char_out({n}, {n}_len, {decl})"
        if a.is_option:
            return f"lbx::frame::option_char({n})"
        return f"lbx::frame::char_in({n}, {n}_len, {decl})"
    if a.is_array:
        return n
    if a.intent == "in":
        return f"((*{n} & 1) != 0)" if a.type == "logical" else f"*{n}"
    return f"*{n}"


def trace_line(a: Arg) -> TraceLine:
    n = a.lname
    if a.type == "procedure":
        return TraceLine("procedure", a.name, f"reinterpret_cast<const void*>({n})")
    if a.type == "ifail":
        return TraceLine("integer", a.name, f"*{n}")
    if a.is_array:
        return TraceLine("array", a.name, dim_length(a))
    if a.is_option:
        return TraceLine("character", a.name, f"std::string_view({n}, 1)")
    if a.is_char:
        ln = f"{n}_len" if a.char_len == "*" else f"std::min<std::size_t>({a.char_len}, {n}_len)"
        return TraceLine("character", a.name, f"std::string_view({n}, {ln})")
    if a.type == "single":  # traced as the double it widens to
        return TraceLine("real", a.name, f"static_cast<double>(*{n})")
    if a.type == "csingle":
        return TraceLine("complex", a.name, f"lbx::Complex(*{n})")
    return TraceLine(a.type, a.name, f"*{n}")


# ---------------------------------------------------------------- procedures

def proc_model(r: Routine, p: Procedure, conv: Convention, typename) -> ProcModel:
    t = typename(p)
    slots = procedure_slots(p, False)

    def machine_call(through: bool) -> list[str]:
        call = []
        for kind, s in conv.order(procedure_slots(p, False, through=through)):
            a = s.arg
            if kind == "len":
                call.append("1" if a.is_option else f"{a.lname}.size()")
            elif a.is_char:
                call.append(f"&{a.lname}" if a.is_option else f"{a.lname}.data()")
            elif a.is_array or a.intent != "in":
                call.append(a.lname if a.is_array else f"&{a.lname}")
            else:
                call.append(f"&{a.lname}_copy")
        return call

    return ProcModel(routine=r.name, proc=p, typename=t, result=p.result,
                     fn_params=machine_params(conv.order, slots, typename),
                     adapter_params=machine_params(conv.order, procedure_slots(p, True), typename, p),
                     callable_params=[(a, a.lname) for a in p.args + p.through],
                     adapter_call=["fn"] + machine_call(True), fn_call=machine_call(False))


# ---------------------------------------------------------------- entries

def _entry(conv: Convention, name: str, layer: str, result, params: list[Param], **kw) -> Entry:
    nbytes = 4 * len(params)
    return Entry(name=name, layer=layer, cname=conv.cname(name), exports=conv.exports(name, nbytes),
                 nbytes=nbytes, result=result, params=params, **kw)


def _plain(r: Routine, conv: Convention, typename) -> Entry:
    params = machine_params(conv.order, routine_slots(r, "plain"), typename)
    locals_, values = [], {}
    for s in routine_slots(r, "traced"):
        a = s.arg
        if s.role == "errbuf":
            values[("arg", s.name)] = "errbuf_"
            values[("len", s.name)] = "lbx::errbuf_length"
        elif s.role == "ifail":
            values[("arg", s.name)] = "&ifail_"
        elif s.role == "adapter":
            values[("arg", s.name)] = f"&{conv.cname(a.proc.adapter)}"
        elif a in r.extras:
            if a.type == "procedure":
                values[("arg", s.name)] = f"&{conv.cname(a.plain_value)}"
            elif a.plain_value == "dummy":
                locals_.append(Local(a.type, f"{a.lname}_dummy[1]", "{}", const=False))
                values[("arg", s.name)] = f"{a.lname}_dummy"
            elif a.is_char:
                locals_.append(Local("character", f"{a.lname}_value[]", a.plain_value))
                values[("arg", s.name)] = f"{a.lname}_value"
                values[("len", s.name)] = f"sizeof({a.lname}_value) - 1"
            else:
                locals_.append(Local(a.type, f"{a.lname}_value", a.plain_value))
                values[("arg", s.name)] = f"&{a.lname}_value"
        else:
            values[("arg", s.name)] = s.name
            if s.is_char:
                values[("len", s.name)] = ("1" if r.option_length == 1 and a.is_option
                                           else f"{s.name}_len")
    call = [values[(kind, s.name)] for kind, s in conv.order(routine_slots(r, "traced"))]
    return _entry(conv, r.name, "plain", r.result, params, purpose=r.purpose,
                  callee=conv.cname(r.name + "T"), call_args=call, locals=locals_,
                  ifail=r.args[-1].lname if r.has_ifail else "",
                  runner=runner_name(r, conv))


def runner_name(r: Routine, conv: Convention) -> str:
    """The traced entry's work between its trace frames as a function of the
    entry's arguments and the indicator writer; only a routine with IFAIL whose
    traced entry calls its own implementation has one."""
    return conv.cname(r.name + "T") + "run_" if r.has_ifail and r.layers != "paired" else ""


def _external(r: Routine, conv: Convention, typename) -> External:
    slots = [Slot(a.lname, a, "value") for a in r.visible]
    params = machine_params(conv.external_order, slots, typename)
    return External(symbol=r.standard.lower() + "_", result=r.result, params=params,
                    call_args=[p.name for p in params], lookup=conv.external_lookup)


def _private(r: Routine, conv: Convention, typename) -> External:
    """The own path's private routine: the standard's argument list, plus SRNAME
    when the traced layer receives one, in the external routine's machine order."""
    names = {a.name for a in r.visible}
    slots = [Slot(a.lname, a, "value") for a in r.traced_args()
             if a.name in names or a.name == "SRNAME"]
    params = machine_params(conv.external_order, slots, typename)
    return External(symbol=f"lbx_own_{r.standard.lower()}_", result=r.result, params=params,
                    call_args=[p.name for p in params], lookup=False)


def _traced(r: Routine, conv: Convention, typename) -> Entry:
    params = machine_params(conv.order, routine_slots(r, "traced"), typename)
    impl_args = [impl_value(a, typename, conv) for a in r.impl_args()]
    if r.has_ifail:
        impl_args.append("fail_")
    traced = [a for a in r.traced_args() if a.trace]
    e = _entry(conv, r.name + "T", "traced", r.result, params, purpose=r.purpose,
               impl_call=f"lbx::{r.chapter}::{r.impl}({', '.join(impl_args)})",
               trace_in=[trace_line(a) for a in traced if a.intent in ("in", "inout")],
               trace_out=[trace_line(a) for a in traced],
               ifail=r.args[-1].lname if r.has_ifail else "", runner=runner_name(r, conv))
    if r.layers == "paired":
        e.external = _external(r, conv, typename)
        e.vendor_flag = "call_vendor"
        if r.own == "external":
            e.impl_call = ""
        elif r.own == "private":
            e.own = _private(r, conv, typename)
            e.impl_call = ""
    return e


def _adapter(r: Routine, pm: ProcModel, conv: Convention) -> Entry:
    args = [p.name for p in pm.fn_params]
    return _entry(conv, pm.proc.adapter, "adapter", pm.result, pm.adapter_params,
                  purpose=f"calls {r.name}'s user procedure {pm.proc.name}", callee="fn",
                  call_args=args)


def _direct(r: Routine, name: str, conv: Convention, typename) -> Entry:
    params = machine_params(conv.order, routine_slots(r, "direct"), typename)
    call = f"lbx::{r.chapter}::{r.impl}({', '.join(impl_value(a, typename, conv) for a in r.visible if a.impl)})"
    return _entry(conv, name, "direct", r.result, params, purpose=r.purpose, impl_call=call)


def _forward(r: Routine, conv: Convention, typename) -> Entry:
    params = machine_params(conv.order, routine_slots(r, "direct"), typename)
    return _entry(conv, r.name, "forward", r.result, params, purpose=r.purpose,
                  external=_external(r, conv, typename))


def impl_params(r: Routine) -> list[tuple[Arg, str]]:
    args = r.visible if r.layers == "direct" else r.impl_args()
    return [(a, a.lname) for a in args if a.impl]


def routine_model(r: Routine, conv: Convention) -> RoutineModel:
    def typename(p: Procedure) -> str:
        return f"{r.name}_{p.name}"

    procs = [proc_model(r, p, conv, typename) for p in r.procedures()]
    entries: list[Entry] = []
    if r.layers == "direct":
        entries.append(_direct(r, r.name, conv, typename))
    elif r.layers == "forward":
        entries.append(_forward(r, conv, typename))
    else:
        entries.append(_plain(r, conv, typename))
        entries.append(_traced(r, conv, typename))
        entries += [_adapter(r, pm, conv) for pm in procs]
        if r.export_impl:
            entries.append(_direct(r, r.impl, conv, typename))
    return RoutineModel(routine=r, entries=entries, procs=procs, messages=r.messages,
                        impl_params=impl_params(r),
                        impl_has_fail=r.has_ifail and r.layers != "direct")


@dataclass
class ChapterModel:
    chapter: Chapter
    routines: list[RoutineModel]

    def of_source(self, source: str) -> list[RoutineModel]:
        return [m for m in self.routines if m.routine.source == source]


def chapter_model(ch: Chapter, conv: Convention) -> ChapterModel:
    return ChapterModel(ch, [routine_model(r, conv) for r in ch.routines])
