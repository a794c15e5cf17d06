"""Books an estimate through real windows off-screen, and leaves a picture of each station.

The windows are the program's own; a pipe stands for the person (see lantos-drive --help).
"""

import argparse
import json
import os
import pathlib
import subprocess
import sys
import tempfile


class Walk:
    def __init__(self, bin_dir, shop, pictures):
        self.pictures = pictures
        self.made = []
        self.home = tempfile.TemporaryDirectory(prefix="lantos-walk-")
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=self.home.name)
        self.process = subprocess.Popen(
            [str(bin_dir / "lantos-drive"), "--desktop", "qt", "--settings", self.home.name, "--computer", "COUNTER",
             "--", f"/D={shop}"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=environment)
        self.answer = self.read()

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

    def rows(self, control):
        return self.say({"get": control})["result"]["rows"]

    def end(self):
        if self.answer["waiting"] != "ended":
            self.do("close")
        self.process.stdin.close()
        self.process.wait(timeout=30)
        self.home.cleanup()


def walk(bin_dir, shop, pictures):
    pictures.mkdir(parents=True, exist_ok=True)
    road = Walk(bin_dir, shop, pictures)
    road.picture("week")
    road.do("click", control="cmdDayView")
    road.picture("day")
    if road.rows("frmMain.List2"):
        road.do("click", control="List2", row=0)
    road.do("click", control="cmdDetailView")
    road.picture("detail")

    road.do("click", control="cmdNewEstimate")
    road.picture("estimate-only")
    road.do("answer", button="No")
    road.do("type", control="NameKey", text="a")
    road.do("click", control="cmdSearch")
    road.picture("customer-search")
    road.do("click", control="CustList", row=0, double=True)
    road.picture("vehicle-list")
    if road.say({"get": "frmVehList.DataGrid1"})["result"]["rows"]:
        road.do("select", control="DataGrid1", row=0)
        road.do("click", control="cmdSelect")
    else:
        road.do("click", control="cmdCancel")
    road.do("type", control="txtComments", text="Customer waits, coffee offered")
    road.do("leave")
    road.picture("booked")
    road.do("click", control="cmdWeekView")
    road.picture("week-after")
    road.end()
    return road.made


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", type=pathlib.Path, required=True, help="where lantos-drive is")
    parser.add_argument("--shop", type=pathlib.Path, required=True, help="the shop's data directory")
    parser.add_argument("--pictures", type=pathlib.Path, required=True, help="where the pictures go")
    options = parser.parse_args()
    made = walk(options.bin, options.shop, options.pictures)
    print("Pictures:")
    for path in made:
        print(f"  {path}")


main()
