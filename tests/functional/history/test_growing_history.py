"""A search through tag files that another copy appends to."""

import threading

from browsesteps import look_for, open_history, shown
from copysteps import convert_patiently, converting_copies, copies, shop, work  # noqa: F401
from historyfiles import History
from workorderfiles import active_tags


def test_nothing_is_shown_twice_or_torn_while_another_copy_converts(copies, work):
    writer, reader = converting_copies(copies, work, 2)
    conversions, failures = 10, []

    def convert_all():
        try:
            for _ in range(conversions):
                convert_patiently(writer)
        except Exception as failure:  # told in the test's own thread
            failures.append(failure)

    convert_patiently(writer)
    thread = threading.Thread(target=convert_all)
    thread.start()
    open_history(reader)
    searches = 0
    while thread.is_alive() or searches == 0:
        searches += 1
        numbers = []
        look_for(reader, "smith")
        while True:
            # The tags come first, and the text a moment later.
            while reader.answer["waiting"] == "box":
                assert reader.answer["title"].startswith("GetCurrWoRec("), reader.answer
                reader.press("Retry")
            reader.expect_form("frmWOHist")
            numbers.append(shown(reader))
            assert reader.caption("custname") == "Smith,John"
            assert reader.rows("WoDetail")[0] == "____Parts____"
            beeps = len(reader.events("beep"))
            reader.click("cmdNext")
            if len(reader.events("beep")) > beeps:
                break
        assert numbers == sorted(set(numbers), reverse=True), "each once, newest first"
        assert numbers == list(range(numbers[0], 5000, -1)), "and none left out"
    thread.join()
    assert not failures, failures[0]
    look_for(reader, "smith")
    assert shown(reader) == 5001 + conversions == len(active_tags(work)) + 5000


def test_tags_appended_in_the_middle_of_a_browse_wait_for_the_next_search(copies, work):
    history = History("V1")
    for number in (1, 2):
        history.add_active(number, opened="2003-09-29", last="Smith", first="John")
    running = converting_copies(copies, work, 2)
    history.write(work)
    writer, reader = running
    open_history(reader)
    look_for(reader, "smith")
    assert shown(reader) == 2
    assert convert_patiently(writer) == 5001
    reader.click("cmdNext")
    assert shown(reader) == 1
    reader.click("cmdNext")
    assert reader.caption("done") == "Hit 2 of 2"
    look_for(reader, "smith")
    assert shown(reader) == 5001
