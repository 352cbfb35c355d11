"""Calling conventions: exported names and the order of machine-level arguments.

Every argument is passed by address.  A CHARACTER argument also carries its
length by value (a "hidden length").  Where the hidden lengths go, how wide
they are, how a routine is named and who pops the stack differ per platform:

* LINUX (gfortran, ifx and flang callers on x86-64): symbol ``name_`` in lower
  case plus the upper-case alias ``NAME``; hidden lengths are ``size_t`` and
  follow all visible arguments, in order.  External standard routines are
  looked up in the loaded BLAS/LAPACK library at their first call.
* WINDOWS32 (stdcall): hidden lengths are 32-bit and follow their own
  character address; four decorations per entry, ``NAME``, ``_NAME``,
  ``_NAME@n`` and ``_name_``, where n is 4 times the count of argument words,
  all mapped by the ``.def`` file onto the one stdcall definition.  External
  standard routines are the statically linked ones of the gfortran convention
  (cdecl, lengths at the end).

A convention only answers questions; ``model.py`` asks them once per entry.
"""

from __future__ import annotations

from dataclasses import dataclass


@dataclass
class Slot:
    """One visible machine-level argument before hidden lengths are placed."""
    name: str  # C identifier
    arg: object | None  # the catalogue Arg; None for ERRBUF and the adapter's fn
    role: str  # value | errbuf | ifail | proc | adapter | fnptr

    @property
    def is_char(self) -> bool:
        return self.role == "errbuf" or (self.role == "value" and self.arg.is_char)


class Convention:
    name = ""
    length_type = ""  # C++ type of a hidden length
    call_attribute = ""  # C++ attribute of every entry and user procedure
    defines_aliases = False  # aliases are C++ definitions (else the .def maps them)

    def order(self, slots: list[Slot]) -> list[tuple[str, Slot]]:
        """Machine order: ('arg', slot) and ('len', slot) items."""
        raise NotImplementedError

    def external_order(self, slots: list[Slot]) -> list[tuple[str, Slot]]:
        """Machine order of a call of an external standard routine."""
        return [("arg", s) for s in slots] + [("len", s) for s in slots if s.is_char]

    def cname(self, name: str) -> str:
        """The identifier the C++ entry defines."""
        raise NotImplementedError

    def exports(self, name: str, nbytes: int) -> list[str]:
        """Every exported decoration of an entry."""
        raise NotImplementedError

    def def_target(self, name: str, nbytes: int) -> str:
        """What the .def file maps every decoration onto (the object symbol less
        the leading underscore that the linker adds)."""
        return f"{name}@{nbytes}"


class Linux(Convention):
    name = "linux"
    length_type = "std::size_t"
    call_attribute = ""
    defines_aliases = True
    external_lookup = True

    def order(self, slots):
        return [("arg", s) for s in slots] + [("len", s) for s in slots if s.is_char]

    def cname(self, name):
        return name.lower() + "_"

    def exports(self, name, nbytes):
        return [name.lower() + "_", name]


class Windows32(Convention):
    name = "windows32"
    length_type = "std::int32_t"
    call_attribute = "__attribute__((stdcall))"
    defines_aliases = False
    external_lookup = False

    def order(self, slots):
        out = []
        for s in slots:
            out.append(("arg", s))
            if s.is_char:
                out.append(("len", s))
        return out

    def cname(self, name):
        return name

    def exports(self, name, nbytes):
        return [name, "_" + name, f"_{name}@{nbytes}", "_" + name.lower() + "_"]


LINUX = Linux()
WINDOWS32 = Windows32()
CONVENTIONS = {c.name: c for c in (LINUX, WINDOWS32)}
