"""The builder's own tables: a wrong offset there would pass for the program's fault."""

import pytest

import shopfiles


@pytest.mark.parametrize("layout, length", [
    (shopfiles.TAG, shopfiles.TAG_LENGTH), (shopfiles.CUSTOMER, shopfiles.CUSTOMER_LENGTH),
    (shopfiles.VEHICLE, shopfiles.VEHICLE_LENGTH), (shopfiles.MAKE, shopfiles.MAKE_LENGTH),
    (shopfiles.EMPLOYEE, 145),
])
def test_a_layout_has_no_gap_and_no_overlap(layout, length):
    end = 0
    for offset, width, _ in layout.values():
        assert offset == end
        end += width
    assert end == length


def test_the_system_record_is_the_shops_and_the_other_programs_without_a_gap():
    spans = [(offset, offset + width) for offset, width, _ in shopfiles.SYSTEM.values()]
    end = 0
    for first, last in sorted(spans + list(shopfiles.FOREIGN_SYSTEM_BYTES)):
        assert first == end
        end = last
    assert end == shopfiles.SYSTEM_LENGTH


def test_what_is_put_into_a_record_is_taken_out_again(shop):
    record = shopfiles.take(shop.system_record(), shopfiles.SYSTEM)
    assert record["company_name"] == "Miller's Garage"
    assert record["last_estimate_number"] == 1001
    assert record["markups"] == (0, 150000, 300000, 450000)


def test_the_newest_vehicle_comes_first_in_its_chain(shop):
    customer = shop.add_customer(7, "Adams", "Beth")
    first = shop.add_vehicle(customer, "Ford", "Focus", "1999", date="2003-09-30")
    second = shop.add_vehicle(customer, "Opel", "Kadett", "1984")
    shop.write()
    vehicles = shop.read_vehicles()
    assert shop.read_customers()[0]["VLink"] == second
    assert vehicles[1]["VLink"] == first
    assert vehicles[0]["VLink"] == shopfiles.NO_LINK
    assert vehicles[0]["Date"] == 731868
