"""Makes models smaller as long as something holds for them."""

import copy
import dataclasses

import model
from model import Basic, Element


def shrunk(drawn, holds):
    """A smaller model for which `holds(model)` is true, as it is for the given one."""
    is_smaller = True
    while is_smaller:
        is_smaller = False
        for change in (_without, _unwrapped, _simplified):
            at = 1
            while at < len(list(model.everything(drawn))):
                candidate = _changed(drawn, at, change)
                if candidate is not None and holds(candidate):
                    drawn, is_smaller = candidate, True
                else:
                    at += 1
    return drawn


def _changed(drawn, at, change):
    """A copy in which the element of that number is changed; None when there is nothing to change."""
    changed = copy.deepcopy(drawn)
    return changed if change(changed, list(model.everything(changed))[at]) else None


def _without(drawn, element):
    """Removes an element, and all that can't be without it."""
    gone = set(model.everything(element))
    while gone:
        for owner in model.everything(drawn):
            for children in model.lists_of_children(owner):
                children[:] = [child for child in children if child not in gone]
        users = [each for each in model.everything(drawn) if _forget(each, gone)]
        gone = {part for user in users for part in model.everything(user)}
    return True


def _forget(element, gone):
    """Lets an element no longer refer to what is gone; whether it can't be without it."""
    for each in dataclasses.fields(element):
        value = getattr(element, each.name)
        if isinstance(value, list) and not any(value is children for children in model.lists_of_children(element)):
            value[:] = [one for one in value if not _mentions(one, gone)]
        elif each.name in ("key", "result") and value is not None and _mentions(value, gone):
            setattr(element, each.name, None)
    return any(used in gone for used in model.mentioned(element))


def _mentions(thing, gone):
    if isinstance(thing, Element):
        return thing in gone
    return dataclasses.is_dataclass(thing) and any(used in gone for used in model.mentioned(thing))


def _unwrapped(drawn, element):
    """Puts what is in a module in its place."""
    owner = model.owners(drawn)[element]
    if not isinstance(element, model.Module) or isinstance(owner, model.Model):
        return False
    at = owner.members.index(element)
    owner.members[at : at + 1] = element.members
    return True


_PLAIN = {"comments": [], "is_simple": False, "is_oneway": False, "is_custom": False, "is_truncatable": False}
_PLAIN |= {"is_general": False, "is_readonly": False, "result": None, "key": None, "bases": [], "supports": [], "raises": [], "context": []}


def _simplified(drawn, element):
    """Takes all from an element that can be left out, or makes its type a plain one."""
    plain = {name: value for name, value in _PLAIN.items() if getattr(element, name, value) != value}
    for name, value in plain.items():
        setattr(element, name, copy.copy(value))
    type_ = getattr(element, "type", None)
    is_plain = isinstance(type_, Basic) or isinstance(element, model.Constant) or type_ is None
    if not plain and not is_plain:
        element.type = Basic("long")
    return bool(plain) or not is_plain
