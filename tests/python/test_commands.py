"""Protects the commands of the scripting host: keywords, members, messages, constants, names, colours, attributes."""

import copy
import doctest
import math
import pathlib
import pickle
import subprocess
import sys
import threading
from unittest import mock

import numpy as np
import pytest

import orvlumgeom as orv
from orvlumgeom import Arrow, Text

README = pathlib.Path(__file__).resolve().parents[2] / "examples/python_host/README.md"
NAMESPACE = vars(orv)

TEXT = dict(text="it's \u00e9", offset=(1.0, -2.5), anchor=orv.TOP_RIGHT, referencePoint=(0.25, 0.5),
            rotationAngle=90.0, font="fixed", color="Red", backgroundStyle=orv.OTHER, backgroundColor="#0a0B0c",
            box=True, justification=orv.CENTER)
ARROW = dict(startPoint=(1.0, 2.0), endPoint=(3.0, 4.0), startAnchor=(1.0, 2.0, 3.0), endAnchor=orv.CENTER,
             startHeadStyle=orv.HOLLOW_CIRCLE, endHeadStyle=orv.NONE, startGap=1.5, endGap=0.25, color="Blue",
             lineStyle=orv.DASHED, lineThickness=orv.THICK)


@pytest.mark.parametrize("make, values", [(Text, TEXT), (Arrow, ARROW)])
def test_every_attribute_is_a_keyword_and_a_member(make, values):
    whole = make(**values)
    assert {name: getattr(whole, name) for name in values} == values
    assert set(values) <= set(dir(whole))
    assert eval(repr(whole), dict(NAMESPACE)) == whole == make(*values.values()) == copy.deepcopy(whole)
    for name, value in values.items():
        one = make()
        default = getattr(one, name)
        setattr(one, name, value)
        assert getattr(one, name) == value != default and one == make(**{name: value}) != make()
        one.setValues(**{name: default})
        assert one == make()


@pytest.mark.parametrize("call, error, message", [
    (lambda: Text(5), TypeError, "Text[0]; found int, expecting string"),
    (lambda: Text(text=orv.ON), TypeError, "Text['text']; found ON, expecting string"),
    (lambda: Text(anchor=(1,)), TypeError,
     "Text['anchor']; found tuple, expecting named position or tuple of 2 or 3 numbers"),
    (lambda: Text(justification=orv.ON), TypeError, "Text['justification']; found ON, expecting CENTER, LEFT or RIGHT"),
    (lambda: Text(size=1), TypeError, "Textkeyword error on size"),
    (lambda: Arrow(*range(12)), TypeError, "Arrow[0]; found int, expecting tuple of 2 numbers"),
    (lambda: Text().translate(1), TypeError, "translate; not all required arguments specified; expected 2, got 1"),
    (lambda: Text().translate(1, 2, 3), TypeError, "translate; too many arguments; expected 2, got 3"),
    (lambda: Text().setValues(color=1), TypeError, "setValues['color']; found int, expecting string"),
    (lambda: Text().size, AttributeError, "Text has no attribute size"),
    (lambda: setattr(Arrow(), "size", 1), AttributeError, "Arrow has no attribute size"),
    (lambda: Text(rotationAngle=361), orv.RangeError,
     "rotationAngle must be a Float in the range: -360 <= rotationAngle <= 360"),
    (lambda: Arrow(startGap=math.nan), orv.RangeError, "startGap must be a Float >= 0"),
    (lambda: Text(color="gr\u00fcn"), orv.ColorError, "gr\u00fcn is not a valid color name."),
    (lambda: orv.color("#12345"), orv.ColorError, "#12345 is not a valid color name."),
    (lambda: orv.color((0, 0, 1.5)), orv.RangeError, "color must be a Float in the range: 0 <= color <= 1"),
    (lambda: orv.checkName("2D"), orv.VelmorNameError, "invalid name"),
    (lambda: orv.checkName(""), orv.VelmorNameError, "name is empty"),
    (lambda: orv.checkName("a b", orv.KERNEL_JOB_NAME), orv.VelmorNameError, "invalid job name"),
    (lambda: orv.checkName("a/b", orv.GUI_MODEL_NAME), orv.VelmorNameError, "invalid model name"),
    (lambda: orv.Annotations().insert("1", Text()), orv.VelmorNameError, "invalid name"),
    (lambda: orv.Annotations().insert("a", 1), TypeError, "insert[1]; found int, expecting Text or Arrow"),
    (lambda: orv.Annotations()["gone"], KeyError, "'gone'"),
    (lambda: orv.symbolicConstant("on"), orv.VelmorNameError, "invalid name"),
    (lambda: orv.NodeTree([(0, 0)]), TypeError, "NodeTree[0]; found list, expecting array of n x 3 numbers"),
    (lambda: orv.distance((0, 0), (1, 1, 1)), TypeError,
     "distance['point1']; not all required arguments specified; expected 3, got 2"),
    (lambda: orv.NodeTree([(0, 0, 0)]).within((0, 0, 0), math.nan), orv.RangeError, "radius must be a Float > 0"),
    (lambda: orv.FloatAttribute("p\0q", 1.0), ValueError, "a keyword with a null character"),
    (lambda: orv.Annotations().insert("a", mock.Mock(spec=Text())), TypeError,
     "insert[1]; found Mock, expecting Text or Arrow")])
def test_errors_are_python_classes_with_the_messages_of_the_library(call, error, message):
    with pytest.raises(error) as raised:
        call()
    assert (type(raised.value), str(raised.value)) == (error, message)
    assert error.__module__ == "builtins" or issubclass(error, orv.Error)


@pytest.mark.parametrize("cls", [cls for cls in vars(orv).values() if isinstance(cls, type(Text))])
def test_an_object_whose_init_did_not_succeed_is_refused(cls):
    half = cls.__new__(cls)
    members = {name: member for name, member in vars(cls).items() if name not in ("__init__", "__dir__")}
    for name, member in members.items():
        if isinstance(member, property) or callable(member):
            with pytest.raises(TypeError, match="^an object whose __init__ did not succeed$"):
                member(half, *["x"] * member.__doc__.count("arg")) if callable(member) else getattr(half, name)
    with pytest.raises(TypeError):
        orv.Annotations().insert("a", half)
    with pytest.raises((TypeError, BufferError)):
        memoryview(half)


def test_a_command_that_fails_changes_nothing():
    text = Text(**TEXT)
    with pytest.raises(orv.ColorError):
        text.setValues(text="new", box=False, color="nope")
    assert text == Text(**TEXT)


def test_constants_are_one_object_each():
    for constant in (orv.ON, orv.FILLED_ARROW, orv.symbolicConstant("MY_OWN")):
        name = repr(constant)
        assert constant is orv.symbolicConstant(name) is getattr(orv, name) is orv.Value([constant]).get()[0]
        assert constant is copy.deepcopy(constant) is pickle.loads(pickle.dumps(constant))
        assert (constant.getText(), str(constant)) == (name, name) and constant.getId() > 0
    assert Text().justification is orv.LEFT and orv.symbolicConstant("_UNSPECIFIED").getId() == 0
    with pytest.raises(TypeError):
        orv.SymbolicConstant()


def test_the_container_shares_its_annotations():
    kept = orv.Annotations()
    text = Text(text="a")
    for name in ("label", "label-1", "\u00e9"):
        kept.insert(name, text)
    kept.insert(annotation=Arrow(), name="arrow")
    text.text = "b"
    kept["label"].box = True
    assert kept["\u00e9"] == Text(text="b", box=True) == text and kept["arrow"] == Arrow()
    assert list(kept) == kept.keys() == ["arrow", "label", "label-1", "\u00e9"]
    assert kept.uniqueName("label") == "label-2" and kept.uniqueName("new") == "new"
    assert kept.rename("label", "z") and not kept.rename("z", "arrow") and not kept.rename("gone", "x")
    del kept["arrow"]
    assert len(kept) == 3 and "arrow" not in kept and "z" in kept


def test_names_and_their_repair():
    assert orv.checkName("caf\u00e9") == "caf\u00e9" and orv.checkName("a b", kind=orv.KERNEL_MODEL_NAME) == "a b"
    assert orv.makeLegalGuiName("_a.b", "......") == "ab" and orv.makeLegalGuiName("___", "......") is None
    assert orv.quoteIfNeeded("a b.c") == '"a b".c' and orv.makeLegalFileName("a:b*c") == "a-b-c"


@pytest.mark.parametrize("color, text", [("Red", "#FF0000"), ("#0a0B0c", "#0A0B0C"), ((0, 1, 0.5), "#00FF80"), ([1, 1.0, np.float32(0), 0.25], "#FFFF00")])
def test_colors(color, text):
    assert orv.colorText(color) == text == orv.colorText(text) == Text(color=orv.colorText(color)).color
    assert len(orv.color(color)) == 4


def test_colors_of_ones_own():
    assert orv.addColor("Mine", (0, 0, 1)) and not orv.addColor("Red", (0, 0, 1))
    assert Text(color="Mine").color == "Mine" and "Mine" in orv.colorNames() and orv.colorText("Mine") == "#0000FF"
    assert orv.removeColor("Mine") and not orv.removeColor("Mine") and not orv.removeColor("Red")


# ---- Property attributes

@pytest.mark.parametrize("make, zero, default, value, wrong, expected", [
    (orv.FloatAttribute, 0.0, 5.0, 7.5, 1, "float"), (orv.IntAttribute, 0, 5, 7, 1.0, "int"),
    (orv.BooleanAttribute, False, False, True, 1, "Boolean"),
    (orv.FloatsAttribute, [], [np.float32(1)], [np.float32(0.5)], [0.5], "list of floats"),
    (orv.StringsAttribute, [], ["a"], ["b", "\u00e9"], ["a", 1], "list of strings"),
    (orv.IntsAttribute, [], [1], [2, 3], [1.0], "list of ints")])
def test_property_attributes(make, zero, default, value, wrong, expected):
    one = make("load", default)
    assert (one.value, one.state, one.isFree()) == (default, orv.UNSET, True)
    one.setValues(load=value)
    assert (one.value, one.state, one.isModified()) == (value, orv.SET, True)
    one.propagate()
    one.setValues(orv.UNCHANGED)
    assert (one.value, one.state, one.isActive()) == (value, orv.UNCHANGED, True)
    with pytest.raises(TypeError) as raised:
        one.setValues(load=wrong)
    assert str(raised.value).startswith("setValues['load']; found ")
    for refused in (orv.UNSET, orv.INVALID):
        with pytest.raises(orv.Error, match="^Invalid propagation status for 'load' attribute.$"):
            one.setValues(load=refused)
    with pytest.raises(TypeError):
        one.setValues(load=None)
    assert (one.value, one.state) == (value, orv.UNCHANGED)
    one.setFromTuple((orv.FREED,))
    assert (one.value, one.state) == (zero, orv.FREED)
    open_one = make("load", default, allowUnset=True, allowNone=orv.ON)
    open_one.setValues(load=value)
    open_one.setValues(load=None)
    assert (open_one.value, open_one.state) == (zero, orv.SET)
    open_one.setValues(load=orv.UNSET)
    assert (open_one.state, one == open_one) == (orv.UNSET, False)
    open_one.forceState(orv.FREED)
    assert one == open_one


# ---- Nodes

def test_nearest_nodes_against_brute_force():
    rng = np.random.default_rng(7)
    nodes, points = rng.random((500, 3)), rng.random((200, 3))
    for stored in (nodes, nodes.astype(np.float32), np.asfortranarray(nodes)[::-1], nodes.tolist()):
        expected = np.linalg.norm(points[:, None] - np.asarray(stored, float)[None], axis=2)
        indices, distances = map(np.asarray, orv.NodeTree(stored).nearest(points))
        assert indices.dtype == np.int32 and np.array_equal(indices, expected.argmin(axis=1))
        assert np.allclose(distances, expected.min(axis=1), rtol=1e-14, atol=0)
    far = np.linalg.norm(nodes - points[0], axis=1)
    found = np.asarray(orv.NodeTree(nodes).within(tuple(points[0]), 0.3))
    assert np.array_equal(found, far.argsort()[: (far < 0.3).sum()])
    assert orv.boundingBox(nodes) == (tuple(nodes.min(axis=0)), tuple(nodes.max(axis=0)))
    assert orv.boundingBox(np.empty((0, 3))) is None and orv.distance((0, 3, 0), [4.0, 0, 0]) == 5.0


def test_searches_of_several_threads():
    nodes = np.random.default_rng(1).random((2000, 3))
    tree = orv.NodeTree(nodes)
    good = []

    def search():
        good.append(all(np.array_equal(tree.nearest(nodes)[0], np.arange(2000)) for _ in range(5)))

    threads = [threading.Thread(target=search) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert good == [True] * 4


@pytest.mark.parametrize("search", ["orv.NodeTree(nodes)", "tree.nearest(nodes)", "tree.within((0, 0, 0), 2.0)"])
def test_searches_let_other_threads_run(search):
    nodes = np.random.default_rng(1).random((5000, 3))
    values = dict(orv=orv, tree=orv.NodeTree(nodes), nodes=nodes)
    turns, gate, code = [], threading.Lock(), compile(search, "search", "eval")

    def take_a_turn():
        with gate:
            turns.append(True)

    other, interval = threading.Thread(target=take_a_turn), sys.getswitchinterval()
    with gate:
        other.start()
        sys.setswitchinterval(1000)  # nobody is asked for the lock
    try:
        assert any(eval(code, values) and turns for _ in range(5000))
    finally:
        sys.setswitchinterval(interval)
        other.join()


# ---- The session, and its end

def test_the_session_of_the_readme():
    failed, run = doctest.testfile(str(README), module_relative=False)
    assert (failed, run > 15) == (0, True)


@pytest.mark.parametrize("end", ["", "sys.exit(0)", "del sys.modules['orvlumgeom']; import orvlumgeom",
                                 "weakref.finalize(orv, lambda: None)", "keep.append(keep)",
                                 "atexit.register(lambda: repr(text))"])
def test_the_interpreter_ends_quietly(end):
    script = f"""
import atexit, sys, weakref
class Late:
    def __del__(self):
        try: text.justification
        except Exception: pass
import orvlumgeom as orv, numpy as np
text = orv.Text(text='late'); array = np.asarray(orv.Array([1, 2])); late = Late()
keep = [text, orv.ON, orv.Value((orv.ON, text)), orv.Annotations(), array, orv.NodeTree([(0, 0, 0)]), late]
keep[3].insert('a', text)
{end}
"""
    ended = subprocess.run([sys.executable, "-X", "dev", "-W", "error", "-c", script], capture_output=True, text=True)
    assert (ended.returncode, ended.stdout, ended.stderr) == (0, "", "")
