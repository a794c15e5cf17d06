"""What a storm has left behind, counted: what was said to be stored, numbers, times and boxes."""

import statistics


def unstored(shop, results):
    """What was said to be stored and isn't there, in words."""
    estimates = {row["EstimateNumber"]: row for row in shop.query("SELECT * FROM Estimates")}
    lines = {(kind, row["EstimateNumber"], row["Word"].split("\t")[0])
             for kind, table, column in (("Labor", "Labors", "Description"), ("Note", "Notes", "Desc1"))
             for row in shop.query(f"SELECT EstimateNumber, {column} AS Word FROM {table}")}
    missing = []
    for result in results:
        last = {}
        for deed, number, what in result["stored"]:
            row = estimates.get(number)
            if row is None:
                missing.append(f"estimate {number} ({deed})")
            elif deed == "booked" and row["CustomerNumber"] != what:
                missing.append(f"estimate {number} is of customer {row['CustomerNumber']}, not {what}")
            elif deed in ("Labor", "Note") and (deed, number, what) not in lines:
                missing.append(f"{deed} {what} of estimate {number}")
            if deed in ("comments", "status", "moved"):
                last[number, deed] = what
        for (number, deed), what in last.items():
            row = estimates[number]
            if deed == "comments" and (number, "moved") not in last and row["Comments"] != what:
                missing.append(f"comments of {number}: {row['Comments']!r}, not {what!r}")
            if deed == "status" and (number, "moved") not in last and row["Status"] != what:
                missing.append(f"status of {number}: {row['Status']}, not {what}")
            if deed == "moved" and not str(row["Comments"] or "").startswith("Rescheduled for"):
                missing.append(f"{number} wasn't moved")
    return missing


def given_twice(results):
    booked = [number for result in results for deed, number, _ in result["stored"] if deed == "booked"]
    return sorted({number for number in booked if booked.count(number) > 1})


def share(times, part):
    ordered = sorted(times)
    return 1000 * ordered[min(len(ordered) - 1, int(part * len(ordered)))]


def tell_times(results):
    by_deed = {}
    for result in results:
        for deed, times in result["times"].items():
            by_deed.setdefault(deed, []).extend(times)
    print(f"{'command':16}{'times':>8}{'median':>10}{'95 %':>10}{'99 %':>10}{'longest':>10}")
    for deed, times in sorted(by_deed.items()) + [("all", [each for times in by_deed.values() for each in times])]:
        print(f"{deed:16}{len(times):8}{1000 * statistics.median(times):8.1f}ms{share(times, 0.95):8.1f}ms"
              f"{share(times, 0.99):8.1f}ms{1000 * max(times):8.1f}ms")


def tell_boxes(results):
    boxes = {}
    for result in results:
        for text, count in result["boxes"].items():
            boxes[text.split("\n")[0]] = boxes.get(text.split("\n")[0], 0) + count
    for text, count in sorted(boxes.items()):
        print(f"box {count:5} times: {text}")
    return sum(boxes.values())
