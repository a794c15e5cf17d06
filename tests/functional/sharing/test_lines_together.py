"""Two and four copies with one estimate on show: what is kept of its lines, comments and status."""

from functools import partial

from conversionsteps import FIRST, THURSDAY, TITLE, answer_status, expect_converted, question
from copysteps import copies, in_parallel
from linesteps import (KINDS, LABOR, PARTS, begin_to_add, begin_to_change, begin_to_remove, close_list, fill, on_show, open_list, pair,
                       remove, save, set_status, stored)
from movesteps import NEW
from workorderfiles import read_workorder


def at_both(pair, deed):
    for copy, word, count in zip(pair, ("FIRST", "SECOND"), (5, 7)):
        deed(copy, word, count)


def old_lines(kind):
    numbers = ("ONE", "TWO") if kind is PARTS else (1, 2)
    return dict(zip(numbers, (kind.line("ONE", 1), kind.line("TWO", 2))))


# Lines that are added.


def test_a_line_that_each_of_two_copies_adds_is_there_whole(pair, shop):
    for kind in KINDS:
        for copy in pair:
            open_list(copy, kind)
            begin_to_add(copy, kind)
        at_both(pair, lambda copy, word, count: fill(copy, kind, word, count))
        for copy in pair:
            save(copy, kind)
            close_list(copy, kind)
        numbers = ("FIRST", "SECOND") if kind is PARTS else (3, 4)
        assert stored(shop, kind) == {**old_lines(kind), numbers[0]: kind.line("FIRST", 5),
                                      numbers[1]: kind.line("SECOND", 7)}


def test_a_part_that_each_of_two_copies_adds_is_one_line_of_both_quantities(pair, shop):
    for copy, count in zip(pair, (5, 7)):
        begin_to_add(copy, PARTS)
        fill(copy, PARTS, "SAME", count)
    for copy in pair:
        save(copy, PARTS)
    text, _, price, _, *others = PARTS.line("SAME", 7)
    assert stored(shop, PARTS)["SAME"] == (text, 12, price, 12 * price, *others)


def test_lines_of_four_copies_at_once_are_all_there(copies, shop):
    each = 4

    def add_all(copy, letter):
        for kind in KINDS:
            open_list(copy, kind)
            for i in range(each):
                begin_to_add(copy, kind)
                fill(copy, kind, f"{letter}{i}", i + 1)
                save(copy, kind)
            close_list(copy, kind)

    in_parallel(*(partial(add_all, copy, letter) for copy, letter in zip(on_show(copies, shop, 4), "ABCD")))
    for kind in KINDS:
        lines = stored(shop, kind)
        wanted = [kind.line(f"{letter}{i}", i + 1) for letter in "ABCD" for i in range(each)]
        assert sorted(lines.values()) == sorted([*old_lines(kind).values(), *wanted])
        if kind is not PARTS:
            assert sorted(lines) == list(range(1, 4 * each + 3)), "behind one another"


# Lines that are changed and removed.


def test_two_lines_that_two_copies_change_are_both_changed(pair, shop):
    for kind in KINDS:
        for copy, line in zip(pair, ("ONE", "TWO")):
            open_list(copy, kind)
            begin_to_change(copy, kind, line)
        at_both(pair, lambda copy, word, count: fill(copy, kind, word, count, but=("PartNumber",)))
        for copy in pair:
            save(copy, kind)
            close_list(copy, kind)
        assert list(stored(shop, kind).values()) == [kind.line("FIRST", 5), kind.line("SECOND", 7)]


def test_of_one_line_that_two_copies_change_the_later_one_is_kept_whole_if_wanted(pair, shop):
    for kind in KINDS:
        for copy in pair:
            open_list(copy, kind)
            begin_to_change(copy, kind, "ONE")
        at_both(pair, lambda copy, word, count: fill(copy, kind, word, count, but=("PartNumber",)))
        first, second = pair
        save(first, kind)
        second.key("F10")
        second.expect_box(title=f"Change {kind.noun}", buttons=["Yes", "No", "Cancel"])
        second.press("Yes")
        for copy in pair:
            close_list(copy, kind)
        number = next(iter(old_lines(kind)))
        assert stored(shop, kind) == {**old_lines(kind), number: kind.line("SECOND", 7)}


def test_a_line_that_is_removed_while_another_copy_changes_it_is_there_as_changed_if_wanted(pair, shop):
    remover, changer = pair
    for kind in KINDS:
        for copy in pair:
            open_list(copy, kind)
        begin_to_change(changer, kind, "ONE")
        fill(changer, kind, "CHANGED", 7, but=("PartNumber",))
        remove(remover, kind, "ONE")
        first = next(iter(old_lines(kind)))
        assert first not in stored(shop, kind)
        changer.key("F10")
        changer.expect_box(title=f"Change {kind.noun}", buttons=["Yes", "No", "Cancel"])
        changer.press("Yes")
        for copy in pair:
            close_list(copy, kind)
        assert stored(shop, kind) == {**old_lines(kind), first: kind.line("CHANGED", 7)}


def test_a_line_that_two_copies_remove_takes_no_other_with_it(pair, shop):
    for kind in KINDS:
        for copy in pair:
            open_list(copy, kind)
        first, second = pair
        remove(first, kind, "ONE")
        begin_to_remove(second, kind, "ONE")
        second.expect_box(title=f"Remove {kind.noun}", buttons=["OK"])
        second.press("OK")
        for copy in pair:
            close_list(copy, kind)
        assert list(stored(shop, kind).values()) == [kind.line("TWO", 2)]


# Comments and status.


def test_of_comments_that_two_copies_type_the_later_ones_are_kept_whole(pair, shop):
    first, second = pair
    for copy, text in ((first, "from the first, by noon"), (second, "second")):
        copy.type("txtComments", text)
    for copy in pair:
        copy.leave()
    assert shop.estimate(900)["Comments"] == "second"


def test_of_a_status_that_two_copies_set_the_later_one_is_kept(pair, shop):
    first, second = pair
    set_status(first, "Arrived")
    set_status(second, "Cancelled")
    assert shop.estimate(900)["Status"] == 6


def test_comments_status_and_lines_of_different_copies_are_all_kept(pair, shop):
    first, second = pair
    first.type("txtComments", "by noon")
    begin_to_add(second, LABOR)
    fill(second, LABOR, "SECOND", 7)
    first.leave()
    set_status(first, "Arrived")
    save(second, LABOR)
    kept = shop.estimate(900)
    assert (kept["Comments"], kept["Status"], stored(shop, LABOR)[3]) == ("by noon", 1, LABOR.line("SECOND", 7))


# A conversion or a move by the other.


def add_one_of_each(copy, word):
    for kind in KINDS:
        open_list(copy, kind)
        begin_to_add(copy, kind)
        fill(copy, kind, word, 5)
        save(copy, kind)
        close_list(copy, kind)


def words_in_order(shop, number):
    sections = read_workorder(shop, number)
    return {name: [word for row in sections[name] for word in ("ONE", "TWO", "EARLY", "LATE") if f"{word} AGAIN" in row]
            for name in ("Parts", "Labor", "Sublets", "Waste", "Notes")}


def test_lines_go_into_the_work_order_that_another_copy_begins_until_it_is_confirmed(pair, shop):
    """What comes later stays on the estimate, and a second conversion is asked about."""
    converter, other = pair
    converter.click("cmdConvert")
    converter.expect_box(question())
    add_one_of_each(other, "EARLY")
    converter.press("Yes")
    expect_converted(converter, FIRST)
    answer_status(converter)
    add_one_of_each(other, "LATE")
    for kind in KINDS:
        assert list(stored(shop, kind).values())[2:] == [kind.line("EARLY", 5), kind.line("LATE", 5)]
    assert set(map(tuple, words_in_order(shop, FIRST).values())) == {("ONE", "TWO", "EARLY")}
    other.click("cmdConvert")
    other.expect_box("Estimate # 000900 was changed by another user since it was shown here.\n\n"
                     f"It is Workorder # {FIRST:06}.\n\nDo you wish to continue?", TITLE, buttons=["Yes", "No"])
    other.press("No")


def test_lines_move_with_the_estimate_that_another_copy_moves(pair, shop):
    """What comes later stays with the old one. Both have the comments that were typed meanwhile."""
    mover, other = pair
    mover.click("cmdReschedule")
    mover.expect_form("frmReschedule")
    other.type("txtComments", "by noon")
    other.leave()
    add_one_of_each(other, "EARLY")
    mover.pick("DTPicker1", THURSDAY)
    mover.key("F10")
    mover.expect_form("frmMain")
    add_one_of_each(other, "LATE")
    for kind in KINDS:
        early, late = kind.line("EARLY", 5), kind.line("LATE", 5)
        assert list(stored(shop, kind).values())[2:] == [early, late]
        assert [line[:2] for line in stored(shop, kind, NEW).values()][2:] == [early[:2]]
    estimates = shop.query("SELECT EstimateNumber, Status, Comments FROM Estimates ORDER BY EstimateNumber")
    assert [tuple(estimate.values()) for estimate in estimates] == [
        (900, 7, "Rescheduled for 10/02/2003. by noon"), (NEW, 0, "by noon")]
