"""The builder's own tables: a wrong offset there would pass for the program's fault."""

import pytest

import inventoryfiles
from inventoryfiles import (KIT, KIT_LENGTH, MASTER, MASTER_LENGTH, TAG, TAG_LENGTH, kit_part, make_inventory,
                            make_kits, make_names, part)


@pytest.mark.parametrize("layout, length", [(TAG, TAG_LENGTH), (MASTER, MASTER_LENGTH), (KIT, KIT_LENGTH)])
def test_a_layout_has_no_gap_and_no_overlap(layout, length):
    end = 0
    for offset, width, _ in layout.values():
        assert offset == end
        end += width
    assert end == length


def test_a_tag_leads_to_its_master_and_repeats_what_lists_need(tmp_path):
    offsets = make_inventory(tmp_path, [
        part("PF47", "OIL FILTER", (310, 420, 500, 699), in_stock=12, Department="FILTERS", AltNumber2="PH3614"),
        part("OLD1", "GONE", Deleted=1)])
    assert offsets == {"PF47": 0, "OLD1": 344}
    tags = inventoryfiles.read_tags(tmp_path)
    assert tags[0] == {"StockNumber": "PF47", "Description": "OIL FILTER", "Pricing": (310, 420, 500, 699),
                       "InStock": 12, "Tag": 0, "IsStocked": 1, "Dummy": ""}
    assert tags[1]["StockNumber"] == "" and tags[1]["Tag"] == 344
    masters = inventoryfiles.read_masters(tmp_path)
    assert masters[0]["AltNumber2"] == "PH3614" and masters[0]["Department"] == "FILTERS"
    assert masters[1]["StockNumber"] == "OLD1" and masters[1]["Deleted"] == 1
    assert masters[0]["UsageLink"] == masters[0]["ReceivingLink"] == -1


def test_kits_and_names_read_back_as_they_were_made(tmp_path):
    kits = {"TUNEUP": ["SPARKPLUG(4)", "", "AIRFILTER"], "EMPTY": []}
    make_kits(tmp_path, kits)
    assert inventoryfiles.read_kits(tmp_path) == kits
    assert (tmp_path / "TQINVKIT.DAT").stat().st_size == 2 * 1971
    make_names(tmp_path, ["BRAKES", "A NAME OF MORE THAN TWENTY"], ["WAGNER"])
    assert (tmp_path / "TQDEPART.DAT").read_bytes() == b"BRAKES              A NAME OF MORE THAN \r\n"
    assert inventoryfiles.read_names(tmp_path, "TQMANUFA.DAT") == ["WAGNER"]
    assert kit_part("TUNEUP", sale="99.00", list_price="120.00")["Location"] == "KIT:(99.00,120.00)"
