"""Every record: its file, its length, and each field's offset, width and kind. Written down by hand."""

import struct

LONG, INTEGER, BYTE, TEXT, OPAQUE = "long", "integer", "byte", "text", "opaque"

SYSTEM = ("TQSYSTEM.DAT", 1038, {
    "last_workorder_number": (0, 4, LONG),
    "last_estimate_number": (4, 4, LONG),
    "korvel1": (8, 4, OPAQUE),
    "last_customer_number": (12, 4, LONG),
    "last_employee_number": (16, 4, LONG),
    "korvel2": (20, 4, OPAQUE),
    "tax_rate_parts": (24, 4, LONG),
    "tax_rate_labor": (28, 4, LONG),
    "tax_rate_sublet": (32, 4, LONG),
    "tax_rate_waste": (36, 4, LONG),
    "shop_rate": (40, 4, LONG),
    "company_name": (44, 32, TEXT),
    "company_address": (76, 33, TEXT),
    "company_city": (109, 21, TEXT),
    "company_state": (130, 3, TEXT),
    "company_zip": (133, 11, TEXT),
    "company_phone1": (144, 15, TEXT),
    "company_phone2": (159, 15, TEXT),
    "fed_id_number": (174, 21, TEXT),
    "state_id_number": (195, 21, TEXT),
    "local_id_number": (216, 21, TEXT),
    "markups_0": (237, 4, LONG),
    "markups_1": (241, 4, LONG),
    "markups_2": (245, 4, LONG),
    "markups_3": (249, 4, LONG),
    "hand_msg1": (253, 79, TEXT),
    "hand_msg2": (332, 79, TEXT),
    "korvel3": (411, 288, OPAQUE),
    "labor_surcharge_percent": (699, 4, LONG),
    "parts_surcharge_percent": (703, 4, LONG),
    "surcharge_description": (707, 79, TEXT),
    "fleet_terms": (786, 79, TEXT),
    "state_reg_number": (865, 21, TEXT),
    "korvel4": (886, 19, OPAQUE),
    "shell_command_line": (905, 79, TEXT),
    "korvel5": (984, 1, OPAQUE),
    "fleet_late_charge_percent": (985, 4, LONG),
    "korvel6": (989, 1, OPAQUE),
    "extra_company_name": (990, 41, TEXT),
    "korvel7": (1031, 2, OPAQUE),
    "surcharge_is_sublet": (1033, 1, BYTE),
    "korvel8": (1034, 4, OPAQUE),
})

CUSTOMER_TAG = ("TQCSTTAG.DAT", 96, {
    "Number": (0, 4, LONG),
    "NameKey": (4, 32, TEXT),
    "SpouseKey": (36, 32, TEXT),
    "Offset": (68, 4, LONG),
    "Phone": (72, 15, TEXT),
    "reserved": (87, 9, TEXT),
})

CUSTOMER = ("TQCSTDAT.DAT", 317, {
    "Number": (0, 4, LONG),
    "Lastname": (4, 21, TEXT),
    "Firstname": (25, 21, TEXT),
    "Spouse": (46, 21, TEXT),
    "SpouseLast": (67, 21, TEXT),
    "Address": (88, 33, TEXT),
    "City": (121, 21, TEXT),
    "State": (142, 3, TEXT),
    "Zip": (145, 11, TEXT),
    "HomePhone": (156, 15, TEXT),
    "WorkPhone": (171, 15, TEXT),
    "WorkExt": (186, 6, TEXT),
    "OtherPhone": (192, 15, TEXT),
    "pricing_level": (207, 2, INTEGER),
    "Date": (209, 4, LONG),
    "tax_id_number": (213, 21, TEXT),
    "Comment": (234, 47, TEXT),
    "salesperson": (281, 32, TEXT),
    "VLink": (313, 4, LONG),
})

VEHICLE = ("TQVEHICL.DAT", 397, {
    "Number": (0, 4, LONG),
    "Deleted": (4, 4, LONG),
    "Make": (8, 21, TEXT),
    "Model": (29, 21, TEXT),
    "Year": (50, 6, TEXT),
    "EngineSize": (56, 13, TEXT),
    "Transmission": (69, 13, TEXT),
    "VIN": (82, 21, TEXT),
    "LicenseNumber": (103, 11, TEXT),
    "State": (114, 3, TEXT),
    "VComment1": (117, 65, TEXT),
    "VComment2": (182, 65, TEXT),
    "VComment3": (247, 65, TEXT),
    "VComment4": (312, 65, TEXT),
    "Mileage": (377, 4, LONG),
    "Date": (381, 4, LONG),
    "FirstMileage": (385, 4, LONG),
    "FirstDate": (389, 4, LONG),
    "VLink": (393, 4, LONG),
})

MAKE_MODEL = ("TQMAKMOD.DAT", 29, {
    "Name": (0, 21, TEXT),
    "Prev": (21, 4, LONG),
    "Next": (25, 4, LONG),
})

VENDOR = ("TQVENDOR.DAT", 204, {
    "VendorName": (0, 32, TEXT),
    "Contact": (32, 32, TEXT),
    "Address": (64, 33, TEXT),
    "City": (97, 21, TEXT),
    "State": (118, 3, TEXT),
    "Zip": (121, 11, TEXT),
    "Phone1": (132, 15, TEXT),
    "Phone1Ext": (147, 6, TEXT),
    "Phone2": (153, 15, TEXT),
    "Phone3": (168, 15, TEXT),
    "TaxIdNumber": (183, 21, TEXT),
})

EMPLOYEE = ("TQEMPLOY.DAT", 199, {
    "EmpNumber": (0, 4, LONG),
    "Name": (4, 32, TEXT),
    "SocSecNum": (36, 15, TEXT),
    "EmpAddr": (51, 33, TEXT),
    "EmpCity": (84, 21, TEXT),
    "EmpState": (105, 3, TEXT),
    "EmpZip": (108, 11, TEXT),
    "EmpPhone": (119, 15, TEXT),
    "DateHired": (134, 4, LONG),
    "DateTerminated": (138, 4, LONG),
    "MaritalStatus": (142, 1, BYTE),
    "NumExemptions": (143, 1, BYTE),
    "FICAExempt": (144, 1, BYTE),
    "Wage": (145, 4, LONG),
    "WagePeriod": (149, 1, BYTE),
    "Salary": (150, 4, LONG),
    "SalaryPeriod": (154, 1, BYTE),
    "CommissionPeriod": (155, 1, BYTE),
    "Commission": (156, 4, LONG),
    "Insurance": (160, 4, LONG),
    "OvertimeExempt": (164, 1, BYTE),
    "Savings": (165, 4, LONG),
    "korvel1": (169, 4, OPAQUE),
    "Uniform": (173, 4, LONG),
    "korvel2": (177, 18, OPAQUE),
    "PayrollHead": (195, 4, LONG),
})

INVENTORY_TAG = ("TQINVTAG.DAT", 128, {
    "StockNumber": (0, 21, TEXT),
    "Description": (21, 39, TEXT),
    "Pricing_0": (60, 4, LONG),
    "Pricing_1": (64, 4, LONG),
    "Pricing_2": (68, 4, LONG),
    "Pricing_3": (72, 4, LONG),
    "InStock": (76, 2, INTEGER),
    "Tag": (78, 4, LONG),
    "IsStocked": (82, 1, BYTE),
    "Dummy": (83, 45, TEXT),
})

INVENTORY = ("TQINVENT.DAT", 344, {
    "StockNumber": (0, 21, TEXT),
    "AltNumber_0": (21, 21, TEXT),
    "AltNumber_1": (42, 21, TEXT),
    "AltNumber_2": (63, 21, TEXT),
    "AltNumber_3": (84, 21, TEXT),
    "Description": (105, 39, TEXT),
    "Department": (144, 21, TEXT),
    "Manufacturer": (165, 21, TEXT),
    "Comment": (186, 79, TEXT),
    "Pricing_0": (265, 4, LONG),
    "Pricing_1": (269, 4, LONG),
    "Pricing_2": (273, 4, LONG),
    "Pricing_3": (277, 4, LONG),
    "MarkupPercent_0": (281, 4, LONG),
    "MarkupPercent_1": (285, 4, LONG),
    "MarkupPercent_2": (289, 4, LONG),
    "MarkupPercent_3": (293, 4, LONG),
    "IsStocked": (297, 1, BYTE),
    "Location": (298, 21, TEXT),
    "HasACore": (319, 1, BYTE),
    "CoreCost": (320, 4, LONG),
    "HasWaste": (324, 1, BYTE),
    "DisposalFee": (325, 4, LONG),
    "ReorderLevel": (329, 2, INTEGER),
    "QtyInStock": (331, 2, INTEGER),
    "IdealLevel": (333, 2, INTEGER),
    "Deleted": (335, 1, BYTE),
    "UsageLink": (336, 4, LONG),
    "ReceivingLink": (340, 4, LONG),
})

KIT = ("TQINVKIT.DAT", 1971, {
    "KitNumber": (0, 21, TEXT), **{"Line_%d" % i: (21 + 39 * i, 39, TEXT) for i in range(50)}})

FOLLOWUP = ("TQFOLLOW.DAT", 596, {
    "Active": (0, 1, BYTE),
    "CustomerNumber": (1, 4, LONG),
    "VIN": (5, 21, TEXT),
    "LicenseNumber": (26, 11, TEXT),
    "korvel1": (37, 6, OPAQUE),
    "WorkorderNumber": (43, 4, LONG),
    "FollowupDate": (47, 4, LONG),
    "Miles": (51, 4, LONG),
    "Days": (55, 4, LONG),
    "Description": (59, 513, TEXT),
    "Mechanic": (572, 4, LONG),
    "Hours": (576, 4, LONG),
    "Rate": (580, 4, LONG),
    "Total": (584, 4, LONG),
    "korvel2": (588, 8, OPAQUE),
})

PO_TAG = ("TQOPENPO.DAT", 171, {
    "Number": (0, 4, LONG),
    "VendorName": (4, 32, TEXT),
    "VendorInvoice": (36, 11, TEXT),
    "Status": (47, 2, INTEGER),
    "amounts": (49, 106, OPAQUE),
    "FileName": (155, 16, TEXT),
})

LABOR_KIT = ("TQLABKIT.DAT", 26, {"Code": (0, 5, TEXT), "Kit": (5, 21, TEXT)})


def slots(name, offset, count, first=0, width=4, kind=LONG):
    return {"%s_%d" % (name, first + i): (offset + width * i, width, kind) for i in range(count)}


# The money of a work order, a block within its tags.
WO_TOTALS = ("WoTotals", 211, {
    "DateOpen": (0, 4, LONG),
    "DateClosed": (4, 4, LONG),
    "DatePaid": (8, 4, LONG),
    **slots("TaxRate", 12, 4),
    **slots("Cost", 28, 6),
    "reserved": (52, 8, OPAQUE),
    **slots("Subtotal", 60, 8),
    **slots("Discount", 92, 4),
    "DollarDiscount": (108, 4, LONG),
    "WorkorderTax": (112, 4, LONG),
    "WorkorderTotal": (116, 4, LONG),
    "PaymentMethod": (120, 1, BYTE),
    **slots("SplitType", 121, 10, 1, 1, BYTE),
    **slots("SplitAmount", 131, 10, 1),
    **slots("SplitDate", 171, 10, 1),
})

WO_TAG_HEAD = {
    "WorkorderNumber": (0, 4, LONG),
    "CustomerName": (4, 32, TEXT),
    "CustomerNumber": (36, 4, LONG),
    "VIN": (40, 21, TEXT),
    "LicenseNumber": (61, 11, TEXT),
    "Status": (72, 1, BYTE),
    "Type": (73, 1, BYTE),
    "TaxExempt": (74, 1, BYTE),
    "Totals": (75, 211, OPAQUE),
}

ACTIVE_WO_TAG = ("TQOPENWO.DAT", 302, {**WO_TAG_HEAD, "FileName": (286, 16, TEXT)})

ARCHIVED_WO_TAG = ("TQINCTAG.DAT", 290, {**WO_TAG_HEAD, "MasterOffset": (286, 4, LONG)})

PASSWORDS = ("TQPASSWD.DAT", 252, {"password_%d" % i: (21 * i, 21, TEXT) for i in range(12)})

PAYROLL = ("TQPAYROL.DAT", 303, {
    "EmployeeNumber": (0, 4, LONG),
    "PayrollDate": (4, 4, LONG),
    "Hours": (8, 4, LONG),
    "Gross": (12, 4, LONG),
    "korvel1": (16, 1, OPAQUE),
    "FICA": (17, 4, LONG),
    "Medicare": (21, 4, LONG),
    "FUTA": (25, 4, LONG),
    "SUTA": (29, 4, LONG),
    "korvel2": (33, 223, OPAQUE),
    "MaritalStatus": (256, 1, BYTE),
    "NumExemptions": (257, 1, BYTE),
    "FICAExempt": (258, 1, BYTE),
    "Wage": (259, 4, LONG),
    "WagePeriod": (263, 1, BYTE),
    "Salary": (264, 4, LONG),
    "SalaryPeriod": (268, 1, BYTE),
    "CommissionPeriod": (269, 1, BYTE),
    "Commission": (270, 4, LONG),
    "Insurance": (274, 4, LONG),
    "OvertimeExempt": (278, 1, BYTE),
    "Savings": (279, 4, LONG),
    "korvel3": (283, 4, OPAQUE),
    "Uniform": (287, 4, LONG),
    "korvel4": (291, 8, OPAQUE),
    "NextRecord": (299, 4, LONG),
})

LAYOUTS = (SYSTEM, CUSTOMER_TAG, CUSTOMER, VEHICLE, MAKE_MODEL, EMPLOYEE, PASSWORDS, INVENTORY_TAG, INVENTORY, KIT, FOLLOWUP,
           PO_TAG, LABOR_KIT, WO_TOTALS, ACTIVE_WO_TAG, ARCHIVED_WO_TAG, VENDOR, PAYROLL)


def record(layout, **values):
    """One record's bytes. Text as str is NUL-filled; as bytes it is taken as it is, up to the field's width."""
    _, length, fields = layout
    result = bytearray(length)
    for name, value in values.items():
        offset, width, kind = fields[name]
        if kind == LONG:
            piece = struct.pack("<i", value)
        elif kind == INTEGER:
            piece = struct.pack("<h", value)
        elif kind == BYTE:
            piece = struct.pack("<B", value)
        else:
            piece = value.encode("cp1252") if isinstance(value, str) else value
        assert len(piece) <= width, (name, value)
        result[offset:offset + len(piece)] = piece
    return bytes(result)


def pattern(width, seed):
    """Bytes that nobody would write by chance, none of them 0."""
    return bytes(1 + (seed + 7 * i) % 255 for i in range(width))


def file_date(serial):
    return serial + 693974
