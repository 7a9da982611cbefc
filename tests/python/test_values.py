"""Protects the bridge of the scripting host: what Python hands over comes back, and prints as CPython prints it."""

import array
import ast
import gc
import io
import random
import weakref

import numpy as np
import pytest

import orvlumgeom as orv
from orvlumgeom import Value

NUMBERS = [0, -1, 2**31 - 1, -(2**31), 2**32 - 1, 0.0, -0.0, 1e20, 1e-5, 1e100, 5e-324, float("inf"), -1.5, 2 - 3j]
TEXTS = ["", "it's", '"', "it's \"both\"", "a\\b\nc", "a\0b", "gr\u00fc\u00dfe \u20ac \U0001f600", "\udc80"]
NESTED = [(), (1,), [], [1, [2.5, ()]], {}, {"a": (1, {"b": None})}, {-1: "x", 2: [True]}]
KINDS = [("b", "int"), ("h", "int"), ("i", "int"), ("I", "int"), ("f", "float"), ("d", "float")]


@pytest.mark.parametrize("value", [None, True, False, orv.ON, *NUMBERS, *TEXTS, *NESTED], ids=ascii)
def test_values_come_back(value):
    back = Value(value).get()
    assert (type(back), repr(back)) == (type(value), repr(value))
    assert Value(Value(value)) == Value(value)


def as_tuples(value):
    """Lists print as tuples, dictionaries in the order of their keys."""
    if isinstance(value, (list, tuple)):
        return tuple(as_tuples(item) for item in value)
    if isinstance(value, dict):
        return {key: as_tuples(value[key]) for key in sorted(value)}
    return value


def random_value(rng, depth=0):
    kind = rng.randrange(8 if depth < 4 else 5)
    if kind == 0:
        return rng.choice([None, True, False, rng.randint(-(2**31), 2**31 - 1)])
    if kind == 1:  # 15 digits are what the library prints; from 1e15 on CPython waits longer with the exponent
        number = float(f"{rng.randint(-(10**15) + 1, 10**15 - 1)}e{rng.randint(-300, 290)}")
        return number if not 1e15 <= abs(number) < 1e16 else 0.1
    if kind < 5:
        return "".join(rng.choices("ab'\"\\\n \u00e9\u20ac\U0001f600", k=rng.randrange(6)))
    items = [random_value(rng, depth + 1) for _ in range(rng.randrange(4))]
    if kind == 7:
        return {f"k{rng.randrange(99)}'": item for item in items}
    return tuple(items) if kind == 6 else items


@pytest.mark.parametrize("seed", range(200))
def test_values_print_as_cpython_prints_them(seed):
    value = random_value(random.Random(seed))
    assert repr(Value(value)) == repr(as_tuples(value))
    assert ast.literal_eval(repr(Value(value))) == as_tuples(value)
    assert repr(Value(value).get()) == repr(sort_keys(value))


def sort_keys(value):
    if isinstance(value, dict):
        return {key: sort_keys(value[key]) for key in sorted(value)}
    return type(value)(map(sort_keys, value)) if isinstance(value, (list, tuple)) else value


@pytest.mark.parametrize("value", [1.5 + 2j, -2.25 - 1e-7j, 1e20 + 1j, 3 + 0j])
def test_complex_numbers_print_without_parentheses(value):
    assert repr(Value(value)) == repr(value)[1:-1]


@pytest.mark.parametrize("format, name", KINDS)
def test_numbers_of_numpy_keep_their_kind(format, name):
    value = Value(np.dtype(format).type(3))
    assert (value.typeName, value.get()) == (name, 3)
    assert (value == Value(3)) == (format != "I")  # an unsigned number equals no other


@pytest.mark.parametrize("value", [b"ab", {1}, object(), len, {1: 0, "a": 0}, {True: 0}, np.array(["a"], object)[:0]])
def test_what_has_no_counterpart_is_carried(value):
    inside = Value([value]).get()[0]
    assert inside is value or inside == []
    if inside is value:
        with pytest.raises(TypeError) as error:
            orv.Text(text=value)
        assert str(error.value) == f"Text['text']; found {type(value).__name__}, expecting string"


def nested(depth, make):
    value = 0
    for _ in range(depth):
        value = make(value)
    return value


@pytest.mark.parametrize("make", [lambda v: [v], lambda v: (v,), lambda v: {"k": v}, lambda v: {0: v}])
def test_depth_is_bounded(make):
    assert repr(Value(nested(150, make)).get()) == repr(nested(150, make))
    for depth in (151, 100_000):
        with pytest.raises(RecursionError):
            Value(nested(depth, make))


def test_an_object_that_holds_itself_and_numbers_beyond_32_bits():
    loop = []
    loop.append(loop)
    with pytest.raises(RecursionError):
        Value(loop)
    for number in (2**32, -(2**31) - 1, 10**100):
        with pytest.raises(OverflowError):
            orv.distance((number, 0, 0), (0, 0, 0))
    with pytest.raises(UnicodeEncodeError):
        Value("\ud800")


def test_library_values_without_a_counterpart():
    for made, text in ((orv.Expression("a + b"), "a + b"), (orv.Type("Part"), "PartType"),
                       (orv.TranslatedString("it's"), '"it\'s"')):
        assert repr(Value((1, made))) == f"(1, {text})"
    assert isinstance(Value(orv.Expression("x")).get(), Value)
    assert orv.TranslatedString("a") != Value("a")


# ---- Arrays

def plain_bytes(source):
    """What a consumer reads that knows no strides; None where it is refused."""
    read = io.BytesIO()
    try:
        read.write(source)
    except BufferError:
        return None
    return read.getvalue()


@pytest.mark.parametrize("type, name", [(np.int32, orv.INT), (np.float32, orv.FLOAT), (np.float64, orv.DOUBLE)])
def test_memory_of_numpy_is_read_where_it_lies(type, name):
    owner = np.arange(24, dtype=type).reshape(2, 3, 4)
    for view in (owner, owner[:, ::-1], owner[1, :, ::2], owner.T, owner[:0]):
        seen = orv.Array(view)
        assert (seen.type, seen.shape) == (name, view.shape)
        assert seen.address == view.__array_interface__["data"][0]
        assert np.array_equal(np.asarray(seen), view)
        assert np.shares_memory(np.asarray(seen), view) == (view.size > 0)
        assert plain_bytes(seen) == plain_bytes(memoryview(view))
    seen = orv.Array(owner)
    owner[0, 0, 1] = 77
    assert repr(seen).startswith("(((0, 77, " if name is orv.INT else "(((0.0, 77.0, ")
    with pytest.raises(AttributeError, match="^read-only attributes$"):
        seen.setItem(1, 0)


def test_memory_lives_as_long_as_somebody_reads_it():
    source = np.arange(1000.0)
    gone = weakref.ref(source)
    seen = orv.Array(source[::2])
    del source
    gc.collect()
    assert gone() is not None and memoryview(seen)[499] == 998.0
    seen = np.asarray(orv.Array(np.asarray(seen)))  # through the library twice, the objects between dropped
    gc.collect()
    assert gone() is not None and seen[499] == 998.0
    del seen
    gc.collect()
    assert gone() is None
    block = bytearray(16)
    lent = orv.Array(memoryview(block).cast("d"))
    with pytest.raises(BufferError):
        block.append(0)
    del lent
    gc.collect()
    block.append(0)


def test_memory_of_the_library_shows_in_numpy():
    mine = orv.Array([[1, 2], [3, 4.5]])
    seen, again = np.asarray(mine), np.asarray(Value((mine,)).get()[0])
    assert np.shares_memory(seen, again) and not seen.flags.writeable and seen.dtype == np.float64
    mine.setItem(9.5, 1, 0)
    assert seen.tolist() == [[1, 2], [9.5, 4.5]] == again.tolist()
    own = mine.copy()
    own.setItem(0.0, 0)
    assert seen[0, 0] == 1 and own != mine and mine == orv.Array(seen)
    del mine, again
    gc.collect()
    assert seen[1, 0] == 9.5
    with pytest.raises(IndexError):
        own.setItem(1, 2)


@pytest.mark.parametrize("source, type", [
    (np.arange(4), orv.INT), (np.array([1, 2], np.uint8), orv.INT), (np.array([1.5], ">f8"), orv.DOUBLE),
    (array.array("d", [1, 2]), orv.DOUBLE), (np.frombuffer(b"x" * 17, np.uint8)[1:].view("f8"), orv.DOUBLE),
    ([[1, 2], (3, 4)], orv.INT), ([], orv.INT)])
def test_other_numbers_become_arrays_too(source, type):
    seen = orv.Array(source)
    assert seen.type is type and np.array_equal(np.asarray(seen), np.asarray(source))


@pytest.mark.parametrize("source", [1, "ab", b"12", [1, "a"], [[1], 2], np.array(["a"]), np.array([True]), {}])
def test_what_is_no_array(source):
    with pytest.raises(TypeError, match=r"^Array\[0\]; found .*, expecting array$"):
        orv.Array(source)
