#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QVBoxLayout>

#include "bench/BenchShop.h"
#include "bench/NeedWindows.h"
#include "bench/Ratios.h"
#include "board/frmFind.h"
#include "records/Customers.h"
#include "ui/qt/Text.h"

// The window that finds estimates, opened with the customers of the largest shop. Plain fills one bare drop-down with
// the same texts and shows it.
namespace lantos::bench {

namespace {

struct WindowWorld {
  WindowWorld() {
    NeedWindows();
    world.records.customers.LoadCustomerTags();
  }
  World world{LargestShop()};
  EstimateDatabase database{world.environment, world.records};
};

void FindOpened(benchmark::State& state) {
  WindowWorld windowed;
  ui::QtDesktop& windows = Windows();
  Shop shop{windows, windowed.world.environment, windowed.world.records, windowed.world.keys};
  MasterScreens masters(shop);
  for (auto _ : state) {
    frmFind form(shop, windowed.database, masters);
    form.Show();
    windows.Settle();
    if (form.Combo1.ListCount() != 32'767) state.SkipWithError("customers are missing");
    form.Hide();
    form.Unload();
  }
}

void ComboFilled(benchmark::State& state) {
  WindowWorld windowed;
  const Customers& customers = windowed.world.records.customers;
  for (auto _ : state) {
    QWidget window;
    QVBoxLayout layout(&window);
    QComboBox combo;
    layout.addWidget(&combo);
    QStringList texts;
    for (std::size_t i = 0; i < customers.Count(); ++i) {
      texts.append(ui::ToQt(std::string(customers.Tag(i).View(customertag::NameKey))));
    }
    combo.addItems(texts);
    window.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(combo.count());
  }
}

BENCHMARK(FindOpened)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ComboFilled)->Name("FindOpened/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
