"""A line that one copy has listed, or opened in its editor, while the other changes or removes it, or gives its number to
another line: nothing of the other's goes without a word."""

from linesteps import (KINDS, LABOR, PARTS, begin_to_add, begin_to_change, begin_to_remove, close_list,
                       fill, open_list, pair, remove, save, stored)
from workfiles import show

NUMBERED = [kind for kind in KINDS if kind is not PARTS]


def number_of(kind, number):
    return ("ONE", "TWO")[number - 1] if kind is PARTS else number


def as_stored(kind, **words):
    """What the table holds: a line a word and a count, by the numbers ONE and TWO."""
    counts = {"ONE": 1, "TWO": 2}
    return {number_of(kind, counts[name]): kind.line(*line) for name, line in words.items()}


def change(copy, kind, line, word, count):
    begin_to_change(copy, kind, line)
    fill(copy, kind, word, count, but=("PartNumber",))
    save(copy, kind)


def put_new_in_place(copy, kind):
    """The last line is removed; one that is added once the list is opened anew has its number."""
    open_list(copy, kind)
    remove(copy, kind, "TWO")
    close_list(copy, kind)
    if kind is LABOR:
        show(copy)
    open_list(copy, kind)
    begin_to_add(copy, kind)
    fill(copy, kind, "NEW", 9)
    save(copy, kind)
    close_list(copy, kind)


def expect_not_removed(copy, kind):
    name = "labor line" if kind is LABOR else kind.noun.lower()
    copy.expect_box(f'The {name} "TWO" was not removed: somebody else has removed or changed it meanwhile, or has '
                    "stored another line in its place.\n\nThe list shows what is stored.", icon="exclamation")
    copy.press("OK")
    copy.expect_form(kind.screen)


def listed(copy, kind, word):
    return any(word in row for row in copy.rows(kind.list))


def test_the_line_that_got_a_removed_ones_number_isnt_removed_for_it(pair, shop):
    first, second = pair
    for kind in NUMBERED:
        open_list(first, kind)
        put_new_in_place(second, kind)
        begin_to_remove(first, kind, "TWO")
        expect_not_removed(first, kind)
        assert stored(shop, kind) == as_stored(kind, ONE=("ONE", 1), TWO=("NEW", 9))
        assert listed(first, kind, "NEW") and not listed(first, kind, "TWO")
        close_list(first, kind)


def test_a_line_that_was_changed_isnt_removed_unseen(pair, shop):
    first, second = pair
    for kind in KINDS:
        for copy in pair:
            open_list(copy, kind)
        change(second, kind, "TWO", "NEW", 9)
        begin_to_remove(first, kind, "TWO")
        expect_not_removed(first, kind)
        assert stored(shop, kind) == as_stored(kind, ONE=("ONE", 1), TWO=("NEW", 9))
        assert listed(first, kind, "NEW")
        for copy in pair:
            close_list(copy, kind)


def begin_and_lose(pair, kind):
    """The first has typed FIRST 5 into the editor of TWO when the second puts NEW 9 in its place."""
    first, second = pair
    open_list(first, kind)
    begin_to_change(first, kind, "TWO")
    fill(first, kind, "FIRST", 5, but=("PartNumber",))
    if kind is PARTS:
        change(second, kind, "TWO", "NEW", 9)
    else:
        put_new_in_place(second, kind)
    first.key("F10")
    text = first.expect_box(icon="question", buttons=["Yes", "No", "Cancel"])["text"]
    assert text.startswith("Somebody else has changed this meanwhile:\n\n")
    assert 'NEW AGAIN" is stored, "' in text and 'FIRST AGAIN" is yours' in text
    assert text.endswith("Do you want to store yours?\nNo keeps what is stored, CANCEL goes back.")
    return first


def test_of_a_line_that_is_another_by_now_the_stored_one_can_be_kept(pair, shop):
    for kind in KINDS:
        first = begin_and_lose(pair, kind)
        first.press("No")
        first.expect_form(kind.screen)
        assert stored(shop, kind) == as_stored(kind, ONE=("ONE", 1), TWO=("NEW", 9))
        assert listed(first, kind, "NEW" if kind is not PARTS else "TWO")
        close_list(first, kind)


def test_of_a_line_that_is_another_by_now_ours_can_be_stored_behind_another_look(pair, shop):
    for kind in KINDS:
        first = begin_and_lose(pair, kind)
        first.press("Cancel")
        first.expect_form(kind.editor)
        assert stored(shop, kind) == as_stored(kind, ONE=("ONE", 1), TWO=("NEW", 9))
        first.key("F10")
        first.expect_box(icon="question")
        first.press("Yes")
        first.expect_form(kind.screen)
        assert stored(shop, kind) == as_stored(kind, ONE=("ONE", 1), TWO=("FIRST", 5))
        assert listed(first, kind, "FIRST")
        close_list(first, kind)


REMOVED = ("Somebody else has removed this meanwhile.\n\nDo you want to store yours all the same?\nNo leaves it removed, "
           "CANCEL goes back.")


def test_a_line_that_was_removed_meanwhile_comes_back_only_if_the_person_wants(pair, shop):
    first, second = pair
    for kind in KINDS:
        for word, answer in (("ONE", "No"), ("TWO", "Yes")):
            open_list(first, kind)
            begin_to_change(first, kind, word)
            fill(first, kind, "FIRST", 5, but=("PartNumber",))
            open_list(second, kind)
            remove(second, kind, word)
            close_list(second, kind)
            first.key("F10")
            first.expect_box(REMOVED, buttons=["Yes", "No", "Cancel"])
            first.press(answer)
            first.expect_form(kind.screen)
            close_list(first, kind)
        assert stored(shop, kind) == as_stored(kind, TWO=("FIRST", 5))
