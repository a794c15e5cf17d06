"""Roads to the screens of kits, departments and manufacturers, from the inventory list."""

from inventoryfiles import kit_part, make_inventory, make_kits, make_names, part

PARTS = [kit_part("TUNEUP", "TUNE-UP KIT", prices=(100, 200, 300, 400)),
         part("PLUG", "SPARK PLUG", (100, 200, 300, 400), 20), part("WIRES", "IGNITION WIRES", (5, 6, 7, 8), 3),
         part("CAP", "DISTRIBUTOR CAP", (5, 6, 7, 8), 2)]


def make_stock(shop, kits, departments=("KITS", "TIRES"), manufacturers=("WAGNER",)):
    shop.write()
    make_inventory(shop.directory, PARTS)
    make_kits(shop.directory, kits)
    make_names(shop.directory, departments, manufacturers)


def open_part(copy, number):
    """The edit screen of a part, by the menu and the list."""
    copy.wait(50)
    copy.menu("mnuMaintInventory")
    copy.expect_form("frmInvList")
    copy.type("SearchPart", number)
    copy.key("Enter")
    copy.key("F10")
    copy.expect_form("frmInvEdit")
    return copy


def open_kit(copy, number="TUNEUP"):
    open_part(copy, number)
    copy.key("F4")
    copy.expect_form("frmInvKit")
    return copy


def row(quantity, number, description):
    return f"{quantity:>5}   {number:<21}{description}"


def rows_of(copy):
    return [each["text"] for each in copy.control("List1", "frmInvKit")["rows"]]


def add_part(copy, number, quantity=None):
    """To the kit on the screen, by keys."""
    copy.key("F5")
    copy.expect_form("frmInvKitAdd")
    copy.type("txtPart", number)
    if quantity is not None:
        copy.type("txtQuantity", quantity)
    copy.key("F10")
