"""Calling conventions: exported names and the order of machine-level arguments.

Every argument is passed by address.  A CHARACTER argument also carries its
length by value (a "hidden length").  Where the hidden lengths go and how a
routine is named differ per platform:

* LINUX (gfortran, ifx and flang callers on x86-64): symbol ``name_`` in lower
  case plus the upper-case alias ``NAME``; hidden lengths are ``size_t`` and
  follow all visible arguments, in order.
* WINDOWS32 (stdcall): hidden lengths are 32-bit and follow their own
  character address; four decorations per entry, ``NAME``, ``_NAME``,
  ``_NAME@n`` and ``_name_``, where n is 4 times the count of argument words.
"""

from __future__ import annotations

from dataclasses import dataclass

from catalogue import Arg, Procedure, Routine


@dataclass
class Slot:
    """One visible machine-level argument before hidden lengths are placed."""
    name: str
    arg: Arg | None          # None for ERRBUF and adapter pointers
    role: str                # value | errbuf | ifail | proc | adapter
    is_char: bool = False


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
            out.append(Slot(a.lname, a, "value", a.is_char))
    if r.has_ifail and layer != "direct":
        if layer == "traced":
            out.append(Slot("errbuf", None, "errbuf", True))
        ifail = next(a for a in r.args if a.type == "ifail")
        out.append(Slot(ifail.lname, ifail, "ifail"))
    return out


def procedure_slots(p: Procedure, with_fn: bool) -> list[Slot]:
    out = [Slot("fn", None, "fnptr")] if with_fn else []
    out += [Slot(a.lname, a, "value", a.is_char) for a in p.args]
    return out


class Convention:
    name = ""

    def order(self, slots: list[Slot]) -> list[tuple[str, Slot]]:
        """Machine order: ('arg', slot) and ('len', slot) items."""
        raise NotImplementedError

    def entry_names(self, name: str, nbytes: int) -> list[str]:
        raise NotImplementedError

    def routine_entries(self, r: Routine) -> list[tuple[str, list[Slot]]]:
        """(catalogue name, slots) of every exported entry of a routine."""
        if r.layers == "direct":
            return [(r.name, routine_slots(r, "direct"))]
        out = [(r.name, routine_slots(r, "plain")), (r.name + "T", routine_slots(r, "traced"))]
        for p in r.procedures():
            out.append((p.adapter, procedure_slots(p, True)))
        if r.export_impl:
            out.append((r.impl, routine_slots(r, "direct")))
        return out

    def symbols(self, r: Routine) -> list[str]:
        return [s for name, slots in self.routine_entries(r)
                for s in self.entry_names(name, 4 * len(self.order(slots)))]


class Linux(Convention):
    name = "linux"

    def order(self, slots):
        return [("arg", s) for s in slots] + [("len", s) for s in slots if s.is_char]

    def entry_names(self, name, nbytes):
        return [name.lower() + "_", name]


class Windows32(Convention):
    name = "windows32"

    def order(self, slots):
        out = []
        for s in slots:
            out.append(("arg", s))
            if s.is_char:
                out.append(("len", s))
        return out

    def entry_names(self, name, nbytes):
        return [name, "_" + name, f"_{name}@{nbytes}", "_" + name.lower() + "_"]


LINUX = Linux()
WINDOWS32 = Windows32()
