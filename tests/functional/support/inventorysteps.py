"""Roads to the screens that keep the inventory."""

from inventoryfiles import MASTER_FILE, TAG_FILE, TAG_LENGTH, make_inventory
from workfiles import one_estimate, show


FOREIGN_TAIL = bytes(range(1, 46))  # what another program keeps in the 45 bytes behind a tag's fields


def begin_keeping(start, shop, parts, profile=None, **options):
    """The program on an inventory of these parts, its list open from the maintenance menu. The tags have bytes behind
    their fields that Lantos knows nothing of."""
    one_estimate(shop)
    shop.write()
    if profile:
        shop.write_profile(profile)
    make_inventory(shop.directory, parts)
    tags = bytearray(shop.path(TAG_FILE).read_bytes())
    for end in range(TAG_LENGTH, len(tags) + 1, TAG_LENGTH):
        tags[end - len(FOREIGN_TAIL):end] = FOREIGN_TAIL
    shop.path(TAG_FILE).write_bytes(tags)
    copy = show(start(shop, **options))
    return open_inventory(copy)


def open_inventory(copy):
    copy.menu("mnuMaintInventory")
    copy.expect_form("frmInvList")
    return copy


def go_to_part(copy, number):
    """The part is current, found by its number."""
    copy.type("SearchPart", number)
    copy.key("Enter")
    assert listed(copy)[copy.control("DataGrid1")["selected"]] == number
    return copy


def go_to_part_among_all(copy, number):
    """The same, and the other parts are on show again."""
    go_to_part(copy, number)
    copy.type("SearchPart", "")
    copy.key("Enter")
    return copy


def both_files(shop):
    """The bytes of the tags and of the masters."""
    return shop.path(TAG_FILE).read_bytes(), shop.path(MASTER_FILE).read_bytes()


def listed(copy, column="Part"):
    """A column of the list as it is shown."""
    return [row["cells"][column] for row in copy.control("DataGrid1", "frmInvList")["rows"]]
