"""What a work order has of an estimate's labor, notes, checklist and comments, and what the log says of it."""

from boardlines import row_of
from conversionsteps import (FIRST, PARTS, answer_status, begin, convert, convert_whole, estimate, expect_converted,
                             shop, show, stored_comments)
from historyfiles import History, order_text
from inventoryfiles import make_inventory, read_masters, read_tags
from wholeestimate import fill_whole_estimate
from workfiles import make_checklist
from workorderfiles import (active_tags, add_paid_employee, archived_tags, file_name, labor_row, read_workorder,
                            totals_in_text, usage_records, used_from)


# Labor.


def test_the_cost_of_labor_follows_each_mechanics_pay_period(start, shop):
    """Two hours each at 50.00; the wage of an hour in cents, worked out by hand."""
    pay = [
        (dict(wage=1999, wage_period=1, salary=500000), 1999),
        (dict(wage=1999, wage_period=0), 0),
        (dict(salary=100020, salary_period=1), 2500),      # / 40 is 2500.5: the even cent
        (dict(salary=200120, salary_period=2), 2502),      # / 80 is 2501.5
        (dict(salary=260000, salary_period=3), 3000),      # / 86.67
        (dict(salary=346667, salary_period=4), 2000),      # / 173.33
        (dict(salary=1040260, salary_period=5), 2000),     # / 520 is 2000.5
        (dict(salary=2080000, salary_period=6), 2000),     # / 1040
        (dict(salary=4163120, salary_period=7), 2002),     # / 2080 is 2001.5
        (dict(salary=16004, salary_period=8), 2000),       # / 8 is 2000.5
        (dict(salary=16004, salary_period=9, wage=1999, wage_period=1), 0),
    ]
    for i, (fields, _) in enumerate(pay):
        add_paid_employee(shop, 20 + i, f"Paid {i}", **fields)
        estimate(shop, 900 + i)
        shop.add_labor(900 + i, 1, "Work", 2, 5000, mechanic=20 + i)
    for number, mechanic in ((920, 99), (921, 0), (922, -1)):
        estimate(shop, number)
        shop.add_labor(number, 1, "Work", 2, 5000, mechanic=mechanic)
    copy = begin(start, shop, options={"ScheduledToComplete": "Y"})
    numbers = [*range(900, 900 + len(pay)), 920, 921, 922]
    for i, number in enumerate(numbers):
        show(copy, number)
        convert(copy, number)
        expect_converted(copy, FIRST + i, number)
    assert [tag["LaborCost"] for tag in active_tags(shop)] == [*(2 * wage for _, wage in pay), 0, 0, 0]


def test_commission_costs_only_where_it_is_paid_but_stands_on_each_line(start, shop):
    """5.5 % of 4.5 h x 65.00 is 16.0875, with 110.25 of wages 126.3375."""
    add_paid_employee(shop, 6, "No period", wage=1000, wage_period=1, commission=125000)
    estimate(shop)
    shop.add_labor(900, 1, "With", 4.5, mechanic=4)
    shop.add_labor(900, 2, "Without", 1, mechanic=6)
    convert_whole(begin(start, shop))
    assert active_tags(shop)[0]["LaborCost"] == 12634 + 1000
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 450, 6500, 55000, 29250, "With"),
                                                    labor_row(6, 100, 6500, 125000, 6500, "Without")]


def test_hours_applied_on_another_day_stay_behind(start, shop):
    estimate(shop)
    shop.add_labor(900, 1, "Work", 3, 6500, mechanic=4)
    shop.add_labor(900, 2, "HOURS APPLIED ON 09/29/2003", -1.5, 6500, mechanic=4)
    shop.add_labor(900, 3, "Free of hours", 0, 6500, mechanic=4)
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 300, 6500, 55000, 19500, "Work"),
                                                    labor_row(4, 0, 6500, 55000, 0, "Free of hours")]
    assert active_tags(shop)[0]["LaborSubtotal"] == 19500


def test_a_description_of_eight_lines_is_split_at_its_tabs(start, shop):
    estimate(shop)
    lines = [f"line {i}" for i in range(1, 9)]
    shop.add_labor(900, 1, "\t".join([*lines, "the ninth"]), 1, mechanic=4)
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Labor"] == [labor_row(4, 100, 6500, 55000, 6500, *lines)]


# Notes and checklist.


def test_thirty_notes_fit(start, shop):
    estimate(shop)
    for i in range(30):
        shop.add_note(900, 30 - i, f"note {30 - i}", *[""] * 6, "last")
    convert_whole(begin(start, shop))
    assert read_workorder(shop, FIRST)["Notes"] == [f"note {i}" + "\t" * 7 + "last" for i in range(1, 31)]


def test_thirty_one_notes_fail_with_stock_moved_the_number_used_and_no_file(start, shop):
    estimate(shop, Comments="as before")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    for i in range(31):
        shop.add_note(900, i + 1, f"note {i + 1}")
    copy = begin(start, shop, PARTS)
    convert(copy)
    box = copy.expect_box(icon="critical", buttons=["OK"])
    assert box["text"] == ("Subscript out of range: a work order has room for 30 notes.\n\n"
                           "The conversion to work order # 005001 stopped here. What was done before stays:\n"
                           "- the number was taken\n- the usage of PAD-9 was noted\n- the stock of PAD-9 is now 4\n"
                           "The next step was not finished.")
    copy.press("OK")
    copy.expect_form("frmMain")
    assert shop.read_system()["last_workorder_number"] == FIRST + 1
    assert read_tags(shop.directory)[0]["InStock"] == read_masters(shop.directory)[0]["QtyInStock"] == 4
    assert [record["WorkorderNumber"] for record in usage_records(shop)] == [FIRST]
    assert not shop.names("W*.tqa") and active_tags(shop) == archived_tags(shop) == []
    assert (stored_comments(shop), shop.estimate(900)["Status"]) == ("as before", 0)
    assert any("Subscript out of range" in line for line in copy.log_lines())


def test_an_estimate_without_ticks_has_an_empty_checklist_section(start, shop):
    """Even behind one with ticks."""
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop)
    estimate(shop, 901)
    for data in ("[Brakes], , ", "Pads,thin, "):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    copy = begin(start, shop)
    convert_whole(copy)
    show(copy, 901)
    convert_whole(copy, FIRST + 1, 901)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Pads,thin, "]
    assert read_workorder(shop, FIRST + 1)["Check List"] == []


def test_past_work_orders_on_a_worksheet_leave_the_checklist_of_the_estimate(start, shop):
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop, VehVIN="VIN-1")
    for data in ("[Brakes], , ", "Discs,worn,95000"):
        shop.add_row("Checklist", EstimateNumber=900, ChecklistData=data)
    history = History("VIN-1")
    text = order_text(4001).replace("[Check List]\r\n", "[Check List]\r\n[Brakes]\r\nPads,old,11\r\n")
    history.add_active(4001, opened="2003-09-29", text=text)
    copy = begin(start, shop, profile={"Print Options": {"PrintVehSummaryOnWorksheet": "True"}},
                 options={"ScheduledToInProgress": "N"})
    history.write(shop)
    copy.click("cmdPrintWorksheet")
    assert any(line[0].startswith("Workorder: 004001") for line in copy.answer["lines"]), copy.answer
    copy.close()
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Discs,worn,95000"]


def test_values_of_the_checklist_are_written_trimmed(start, shop):
    shop.path("").mkdir(parents=True, exist_ok=True)
    make_checklist(shop, ["[Brakes]", "Pads", "Discs"])
    estimate(shop)
    copy = begin(start, shop)
    copy.click("cmdEstimateChecklist")
    copy.expect_form("frmWOChklst")
    copy.check("List1", row=0)
    copy.select("List1", row=0)
    copy.check("List2", row=0)
    copy.select("List2", row=0)
    copy.type("Service", "  thin ")
    copy.type("DueBackMiles", "   ")
    copy.key("F10")
    copy.expect_form("frmMain")
    convert_whole(copy)
    assert read_workorder(shop, FIRST)["Check List"] == ["[Brakes]", "Pads,thin, "]


# Comments.


def test_comments_that_were_not_left_yet_go_behind_the_number(start, shop):
    estimate(shop, Comments="old")
    copy = begin(start, shop)
    copy.type("txtComments", "  typed but not left  ")
    copy.menu("mnuConvertToWO")
    copy.press("Yes")
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert stored_comments(shop) == copy.text("txtComments") == "Workorder # 005001 typed but not left"


def test_an_estimate_converts_again_and_stock_moves_again(start, shop):
    estimate(shop, Comments="twice")
    shop.add_part(900, "PAD-9", "BRAKE PADS", 4, 3500, 2000)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    convert(copy)
    copy.expect_box("Parts which might need to be ordered.\n\nPAD-9 quantity in stock is now -2")
    copy.press("OK")
    expect_converted(copy, FIRST + 1)
    answer_status(copy)
    assert stored_comments(shop) == "Workorder # 005002 Workorder # 005001 twice"
    assert [tag["WorkorderNumber"] for tag in active_tags(shop)] == [FIRST, FIRST + 1]
    first, second = (shop.path(file_name(FIRST + i)).read_bytes() for i in range(2))
    assert second == first.replace(b"005001", b"005002"), "nothing of the first is left in the second"
    assert read_tags(shop.directory)[0]["InStock"] == read_masters(shop.directory)[0]["QtyInStock"] == -2
    assert [record["WorkorderNumber"] for record in used_from(shop, read_masters(shop.directory)[0])] == [
        FIRST + 1, FIRST]


def test_a_second_estimate_has_nothing_of_the_first(start, shop):
    """One work order in memory serves all."""
    fill_whole_estimate(shop)
    estimate(shop, 901)
    copy = begin(start, shop, PARTS, panel=4)
    convert(copy, name="Ann Baker")
    copy.key("F10")
    copy.press("OK")
    expect_converted(copy, FIRST)
    answer_status(copy)
    show(copy, 901)
    convert_whole(copy, FIRST + 1, 901)
    sections = read_workorder(shop, FIRST + 1)
    assert "Vehicle" not in sections
    assert {name: lines for name, lines in sections.items() if lines} == {
        "Workorder": sections["Workorder"], "Totals": sections["Totals"],
        "Customer": ["CustomerNumber=7", "Lastname=Adams", "Firstname=Beth", "Salesperson=None"]}
    assert totals_in_text(shop, FIRST + 1)["WorkorderTotal"] == active_tags(shop)[1]["WorkorderTotal"] == 0


# The log.


def test_the_log_has_the_number_and_each_step(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    copy = begin(start, shop, PARTS)
    convert_whole(copy)
    mark = "Convert: estimate 000900 to work order # 005001: "
    steps = [line.split(mark)[1] for line in copy.log_lines() if mark in line]
    assert steps == ["the number was taken", "the usage of PAD-9 was noted", "the stock of PAD-9 is now 4",
                     "the tag in TQOPENWO.DAT was written", "the tag in TQINCTAG.DAT was written",
                     "the work order was written to W0005001.tqa", "the comments of the estimate name the work order"]
    assert any("WriteInventory PAD-9 In stock=4" in line for line in copy.log_lines())
    assert any("WriteArchivedWoTag: Opened TQINCTAG.DAT (update,fp=" in line for line in copy.log_lines())


def test_parts_that_the_background_load_hasnt_reached_leave_the_stock_too(start, shop):
    estimate(shop)
    shop.add_part(900, "PAD-9", "BRAKE PADS", 2, 3500)
    shop.write()
    make_inventory(shop.directory, PARTS)
    copy = start(shop)  # with a standing clock the list's timer hasn't run yet
    copy.double_click("List1(2)", row=row_of(copy, "List1(2)", 900))
    convert(copy)
    expect_converted(copy, FIRST)
    answer_status(copy)
    assert {tag["StockNumber"]: tag["InStock"] for tag in read_tags(shop.directory)}["PAD-9"] == 4
