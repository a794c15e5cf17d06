"""Walks the road of one estimate through real windows off-screen: booked, filled, printed, continued, made a work order,
found again and printed. Leaves a picture of each station, and the papers.

The windows are the program's own; a pipe stands for the person (see lantos-drive --help).
"""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile


SCREEN = (1280, 1024)  # pixels
WINDOW = (1100, 750)  # pixels, of the board
TWIPS_A_PIXEL = 15
DICTIONARIES = "/usr/share/hunspell"


class Walk:
    def __init__(self, bin_dir, shop, pictures, now):
        self.pictures = pictures
        self.made = []
        self.papers = []
        self.home = tempfile.TemporaryDirectory(prefix="lantos-walk-")
        environment = dict(os.environ, QT_QPA_PLATFORM=f"offscreen:configfile={self.make_screen()}",
                           XDG_RUNTIME_DIR=self.home.name)
        self.leave_board_size()
        command = [str(bin_dir / "lantos-drive"), "--desktop", "qt", "--settings", self.home.name,
                   "--computer", "COUNTER", "--print-to", self.home.name,
                   "--dictionaries", DICTIONARIES, *(["--now", now] if now else []), "--", f"/D={shop}"]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        env=environment)
        self.answer = self.read()

    def make_screen(self):
        """The screen that isn't there, as the window system's library wants it described."""
        path = pathlib.Path(self.home.name) / "screen.json"
        width, height = SCREEN
        path.write_text(json.dumps({"screens": [{"name": "paper", "x": 0, "y": 0, "width": width, "height": height,
                                                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}))
        return path

    def leave_board_size(self):
        """As the program leaves it at its end, so that the board opens with it."""
        width, height = (pixels * TWIPS_A_PIXEL for pixels in WINDOW)
        path = pathlib.Path(self.home.name) / "Lantos.conf"
        path.write_text(f"[Settings]\nMainWidth={width}\nMainHeight={height}\n")

    def read(self):
        line = self.process.stdout.readline()
        if not line:
            sys.exit("the program has gone away")
        self.answer = json.loads(line)
        if "error" in self.answer:
            sys.exit(f"refused: {self.answer['error']}")
        return self.answer

    def do(self, deed, **more):
        return self.say({"do": deed, **more})

    def say(self, line):
        self.process.stdin.write(json.dumps(line) + "\n")
        self.process.stdin.flush()
        return self.read()

    def picture(self, name):
        path = self.pictures / f"{len(self.made) + 1:02}-{name}.png"
        self.say({"get": "screenshot", "to": str(path)})
        self.made.append(path)

    def keep_paper(self, name):
        """The job just printed: its PDF, and each of its pages as a picture."""
        job = next(event for event in self.answer["events"] if "printed" in event)
        pdf = self.pictures / f"paper-{name}.pdf"
        shutil.copyfile(job["pdf"], pdf)
        self.papers.append(pdf)
        subprocess.run(["pdftoppm", "-r", "80", "-png", str(pdf), str(self.pictures / f"paper-{name}")], check=True)
        self.papers += sorted(self.pictures.glob(f"paper-{name}-*.png"))

    def answer_boxes(self, button):
        while self.answer["waiting"] == "box":
            self.do("answer", button=button)

    def rows(self, control):
        return self.say({"get": control})["result"]["rows"]

    def end(self):
        if self.answer["waiting"] != "ended":
            self.do("close")
        self.process.stdin.close()
        self.process.wait(timeout=30)
        self.home.cleanup()


def lively_row(rows):
    """The day's estimate with the most to show: the longest run of lines up to a blank one."""
    best, best_length, start = 0, 0, 0
    for row, line in enumerate([*(row["text"] for row in rows), ""]):
        if line.strip():
            continue
        if row - start > best_length:
            best, best_length = start, row - start
        start = row + 1
    return best


def show_day(road):
    """Week, day and the day's fullest estimate."""
    road.picture("week")
    road.do("click", control="cmdDayView")
    road.picture("day")
    rows = road.rows("frmMain.List2")
    if rows:
        road.do("click", control="List2", row=lively_row(rows))
    road.do("click", control="cmdDetailView")
    road.picture("detail")
    if rows:
        road.do("click", control="cmdChangeStatus")
        road.picture("change-status")
        road.do("key", key="Esc")


def book(road):
    """A new estimate for the first customer found, and the vehicle."""
    road.do("click", control="cmdNewEstimate")
    road.picture("estimate-only")
    road.do("answer", button="No")
    road.do("type", control="NameKey", text="mur")
    road.do("click", control="cmdSearch")
    if not road.rows("frmCustSearch.CustList"):
        road.do("type", control="NameKey", text="a")
        road.do("click", control="cmdSearch")
    road.do("select", control="CustList", row=0)
    road.picture("customer-search")
    road.do("click", control="CustList", row=0, double=True)
    has_vehicle = bool(road.rows("frmVehList.DataGrid1"))
    if has_vehicle:
        road.do("select", control="DataGrid1", row=0)
    road.picture("vehicle-list")
    road.do("click", control="cmdSelect" if has_vehicle else "cmdCancel")
    road.do("type", control="txtComments", text="Customer waits, coffee offered")
    road.do("leave")
    road.picture("booked")


def check_spelling(road):
    """Of the job on the screen, where a dictionary is installed: its first unknown word is changed, any other left."""
    road.do("click", control="cmdSpellCheck")
    if road.answer["waiting"] == "form":
        road.picture("spelling")
        road.do("type", control="txtWord", text="squeal")
        road.do("key", key="F10")
    while road.answer["waiting"] == "form" and road.answer["form"] == "frmSpelling":
        road.do("click", control="cmdIgnore")
    road.answer_boxes("OK")


def add_labor(road):
    """A line typed, and a standard job with its kit of parts."""
    road.do("click", control="cmdLaborAdd")
    road.do("type", control="Hours", text="1.5")
    road.do("key", key="Enter")
    road.do("type", control="txtDesc", text="Front brakes squeel\nCheck pads and rotors, advise before repair")
    road.do("select", control="EmpList", row=1)
    road.picture("labor")
    check_spelling(road)
    road.do("key", key="F10")
    road.do("click", control="cmdLaborAddCanned")
    road.do("select", control="DataGrid1", row=0)
    road.picture("canned-labor")
    road.do("key", key="F10")
    road.do("key", key="F10")
    if road.answer["waiting"] == "box":
        road.do("answer", button="Yes")
        road.picture("kit")
        road.do("key", key="F10")


def add_part(road):
    """From the inventory list."""
    road.do("click", control="cmdPartAdd")
    road.do("type", control="SearchDesc", text="brake pad")
    road.do("key", key="Enter")
    if road.rows("frmInvList.DataGrid1"):
        road.do("select", control="DataGrid1", row=0)
        road.picture("inventory-list")
        road.do("key", key="F10")
        road.picture("part")
        road.do("key", key="F10")
    road.do("key", key="Esc")


def add_the_rest(road):
    """A sublet of a purchase order, a canned note, and the checklist."""
    road.do("click", control="cmdEstimateSublets")
    road.do("click", control="cmdAdd")
    road.do("select", control="POSubletList", row=len(road.rows("frmSubList.POSubletList")) - 1)
    road.picture("sublet-list")
    road.do("key", key="F10")
    road.picture("sublet")
    road.do("key", key="F10")
    road.do("key", key="Esc")
    road.do("click", control="cmdEstimateNotes")
    road.do("click", control="cmdCanned")
    if road.rows("frmCanNoteList.CanList"):
        road.do("select", control="CanList", row=0)
        road.do("key", key="F10")
        road.do("key", key="F10")
    road.picture("notes")
    road.do("key", key="Esc")
    road.do("click", control="cmdEstimateChecklist")
    if road.rows("frmWOChklst.List1"):
        road.do("check", control="List1", row=0, value=True)
        road.do("click", control="cmdSelect2")
    road.picture("checklist")
    road.do("key", key="F10")


def fill(road):
    road.do("wait", ms=500)  # the inventory list loads meanwhile
    add_labor(road)
    add_part(road)
    add_the_rest(road)
    road.picture("filled")
    road.do("click", control="cmdWeekView")
    road.picture("week-after")
    road.do("click", control="cmdDetailView")


def print_paper(road, button, name):
    """Looked at, printed, and the status that follows from it agreed to."""
    road.do("click", control=button)
    road.answer_boxes("Yes")
    road.picture(f"preview-{name}")
    road.do("print")
    road.keep_paper(name)
    road.do("close")
    road.answer_boxes("Yes")


def continue_tomorrow(road):
    """Half an hour was done today; the rest goes on the next business day, which is shown."""
    road.do("click", control="cmdChangeStatus")
    road.do("check", control="Option1(5)", value=True)
    road.do("click", control="cmdOK")
    road.do("answer", button="Yes")
    road.do("type", control="txtHours", text="0.5")
    road.do("select", control="EmpList", row=1)
    road.picture("continue")
    road.do("key", key="F10")
    road.picture("continued")
    to = road.answer["text"].rsplit(" ", 1)[1]
    road.do("answer", button="OK")
    month, day, year = to.split("/")
    road.do("pick", control="MonthView1", date=f"{year}-{month}-{day}", double=True)
    newest = max(row["data"] for row in road.rows("frmMain.List2"))
    row = [row["data"] for row in road.rows("frmMain.List2")].index(newest)
    road.do("click", control="List2", row=row)
    road.do("click", control="cmdDetailView")
    road.picture("next-day")


def convert(road):
    """With the question about the vehicle, and the messages at the end."""
    road.do("click", control="cmdConvert")
    road.picture("convert")
    road.do("answer", button="Yes")
    if road.answer.get("form") == "frmVehEdit":
        road.picture("convert-vehicle")
        road.do("key", key="F10")
    while road.answer["waiting"] == "box":
        if "is now Workorder" in road.answer["text"]:
            road.picture("converted")
        road.do("answer", button=road.answer["buttons"][0])
    road.picture("work-order")


def answer_questions(road):
    """Which estimates the customer on show has, and who has hours left on the day."""
    road.do("click", control="cmdFind")
    road.do("key", key="F10")
    road.picture("find")
    road.do("key", key="Esc")
    road.do("click", control="cmdTechHours")
    road.picture("technicians-hours")
    road.do("key", key="Esc")


def look_back(road):
    """The work order just made among its owner's earlier ones, what it costs the shop, and its paper."""
    road.do("click", control="cmdWOHistory")
    for name in ("mur", "a"):
        road.do("type", control="srchName", text=name)
        road.do("click", control="cmdSearch")
        if road.answer["waiting"] == "form":
            break
        road.do("answer", button="OK")
    road.picture("history")
    road.do("key", key="Alt+F4")
    road.picture("history-costs")
    road.do("click", control="cmdPrintWO")
    road.picture("preview-work-order")
    road.do("print")
    road.keep_paper("work-order")
    road.do("close")
    road.do("key", key="Esc")


def look_at_the_rest(road):
    """Who has changed what today, and what this copy is."""
    road.do("menu", item="mnuShowTrail")
    road.picture("trail")
    road.do("key", key="Esc")
    road.do("menu", item="mnuHAbout")
    road.picture("about")
    road.do("key", key="Esc")


def print_day(road):
    road.do("click", control="cmdDayView")
    road.do("click", control="cmdPrintDay")
    road.do("print")
    road.keep_paper("day")
    road.do("close")


def walk(bin_dir, shop, pictures, now):
    pictures.mkdir(parents=True, exist_ok=True)
    road = Walk(bin_dir, shop, pictures, now)
    show_day(road)
    book(road)
    fill(road)
    print_paper(road, "cmdPrintEstimate", "estimate")
    print_paper(road, "cmdPrintWorksheet", "worksheet")
    continue_tomorrow(road)
    convert(road)
    answer_questions(road)
    look_back(road)
    look_at_the_rest(road)
    print_day(road)
    road.end()
    return road.made, road.papers


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", type=pathlib.Path, required=True, help="where lantos-drive is")
    parser.add_argument("--shop", type=pathlib.Path, required=True, help="the shop's data directory")
    parser.add_argument("--pictures", type=pathlib.Path, required=True, help="where the pictures go")
    parser.add_argument("--now", help="the local time at which it happens, as 2003-09-30T08:15:00; else the real one")
    options = parser.parse_args()
    made, papers = walk(options.bin, options.shop, options.pictures, options.now)
    print("Pictures:")
    for path in made:
        print(f"  {path}")
    print("Papers:")
    for path in papers:
        print(f"  {path}")


main()
