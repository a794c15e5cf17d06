#include "start/InstalledShop.h"
#include "support/FaultyCalls.h"

// A start that fails leaves nothing behind that another copy would wait for, or put its changes into for nobody.
namespace lantos {
namespace {

using test::Fault;
using test::FaultyCalls;

struct FaultyStart : test::InstalledShop {
  FaultyStart() {
    desktop.otherwise = [](const ui::Box& box) {
      const std::vector<ui::Answer> buttons = ui::ButtonsOf(box);
      return buttons.back();  // Cancel where there is one
    };
    desktop.failuresExpected = true;
    desktop.WillUse([](ui::Form& board) { board.DoClose(); });
  }
  // The board's script is left over where it never came up.
  int Start() {
    try {
      code = Run();
    } catch (const test::ProcessEnded& end) {
      code = end.code;
    }
    if (code != 0) desktop.RunModal(shut);
    return code;
  }
  std::vector<std::string> Left() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(data.Path())) {
      const std::string name = entry.path().filename();
      if (name.starts_with("AU") || (name.starts_with("LN") && data.Content(name).empty())) names.push_back(name);
    }
    return names;
  }

  int code = 0;
  ui::Form shut{desktop, "frmNothing", "Nothing"};
};

TEST(FaultyStart, LeavesNoMailboxAndNoEmptyLogWhicheverCallFails) {
  std::vector<test::FileCall> seen;
  {
    FaultyStart shop;
    FaultyCalls calls(shop.data.Path());
    EXPECT_EQ(shop.Start(), 0);
    seen = calls.Calls();
  }
  int failed = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    // What can't be deleted stays.
    if (test::ErrnoOf(seen[i], Fault::DeviceIo) == 0 || seen[i].kind == test::CallKind::Delete) continue;
    FaultyStart shop;
    FaultyCalls calls(shop.data.Path());
    calls.FailAt(i, Fault::DeviceIo);
    failed += shop.Start() != 0 ? 1 : 0;
    calls.Mend();
    EXPECT_EQ(shop.Left(), std::vector<std::string>())
        << "at " << i << ", " << test::NameOf(seen[i].kind) << " of " << seen[i].name;
  }
  EXPECT_GT(failed, 20);
}

}  // namespace
}  // namespace lantos
