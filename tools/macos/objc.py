"""What a program of macOS says and answers in Objective-C: <objc/runtime.h> and the compiler's own tables."""

RELATIVE, DIRECT = 1 << 31, 1 << 30  # How a list of methods names them.
# Of the compiler's own making.
CXX = {".cxx_construct", ".cxx_destruct"}


def sent(program):
    """The selectors that it sends, or hands to what sends them."""
    return {program.text_at(place) for place in program.pointers_in("__objc_selrefs")}


def methods(program, table):
    if not table:
        return set()
    layout, count = program.number_at(table, "I"), program.number_at(table + 4, "I")
    found = set()
    for index in range(count):
        if layout & RELATIVE:
            entry = table + 8 + 12 * index
            name = entry + program.number_at(entry, "i")
            found.add(program.text_at(name if layout & DIRECT else program.pointer_at(name)))
        else:
            found.add(program.text_at(program.pointer_at(table + 8 + 24 * index)))
    return found


def implemented(program):
    """(class or category, selector)"""
    found = set()
    for own in program.pointers_in("__objc_classlist"):
        # The class, and the class of the class.
        for each in (own, program.pointer_at(own)):
            description = program.pointer_at(each + 32) & ~7
            name = program.text_at(program.pointer_at(description + 24))
            found |= {(name, selector) for selector in methods(program, program.pointer_at(description + 32)) - CXX}
    for own in program.pointers_in("__objc_catlist"):
        name = program.text_at(program.pointer_at(own))
        for place in (16, 24):
            found |= {(name, selector) for selector in methods(program, program.pointer_at(own + place))}
    return found
