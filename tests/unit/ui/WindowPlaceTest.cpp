#include "ui/WindowPlace.h"

#include "TestDesktop.h"
#include "frame/ScratchDirectory.h"

namespace lantos::ui {
namespace {

struct Place {
  Place() { form.SetSize(6000, 3930); }
  std::string Stored(const std::string& key) const { return settings.Get("Lantos", "Settings", key, "(none)"); }
  std::vector<std::string> StoredForm() const {
    return {Stored("frmNotesWidth"), Stored("frmNotesHeight"), Stored("frmNotesState")};
  }

  test::ScratchDirectory directory;
  UserSettings settings{directory.Path()};
  test::TestDesktop desktop;
  Form form{desktop, "frmNotes", "Notes"};
  Label label{form, "lblPlace", "Main list"};
};

using Texts = std::vector<std::string>;

TEST(WindowPlace, KeepsTheSizeOfAFormUnderItsNameAndNoPosition) {
  Place place;
  place.form.SetPosition(100, 200);
  place.form.SetSize(7000.5F, 5000);
  SaveWindow(place.settings, place.form);
  EXPECT_EQ(place.StoredForm(), (Texts{"7000.5", "5000", "0"}));
  EXPECT_EQ(place.Stored("frmNotesLeft"), "(none)");
  EXPECT_EQ(place.Stored("frmNotesTop"), "(none)");
}

TEST(WindowPlace, ClosingAMaximisedFormKeepsTheStoredSizeAndUpdatesTheState) {
  Place place;
  SaveWindow(place.settings, place.form);
  place.form.SetSize(20000, 15000);
  place.form.SetState(WindowState::Maximized);
  SaveWindow(place.settings, place.form);
  EXPECT_EQ(place.StoredForm(), (Texts{"6000", "3930", "2"}));
}

TEST(WindowPlace, ClosingAMinimisedFormWritesNothing) {
  Place place;
  place.form.SetState(WindowState::Minimized);
  SaveWindow(place.settings, place.form);
  EXPECT_EQ(place.StoredForm(), (Texts{"(none)", "(none)", "(none)"}));
}

TEST(WindowPlace, ComesBackAsItWasStored) {
  Place place;
  place.settings.Save("frmNotesWidth", "7000.5");
  place.settings.Save("frmNotesHeight", "5000");
  place.settings.Save("frmNotesState", "2");
  RestoreWindow(place.settings, place.form);
  EXPECT_EQ(place.form.Width(), 7000.5F);
  EXPECT_EQ(place.form.Height(), 5000);
  EXPECT_EQ(place.form.State(), WindowState::Maximized);
}

TEST(WindowPlace, WhatIsNotStoredStaysAsTheFormHasIt) {
  Place place;
  RestoreWindow(place.settings, place.form);
  EXPECT_EQ(place.form.Width(), 6000);
  EXPECT_EQ(place.form.Height(), 3930);
  EXPECT_EQ(place.form.State(), WindowState::Normal);
  place.settings.Save("frmNotesHeight", "4500");
  RestoreWindow(place.settings, place.form);
  EXPECT_EQ(place.form.Width(), 6000);
  EXPECT_EQ(place.form.Height(), 4500);
}

TEST(WindowPlace, ATextThatIsNoNumberRaisesTheConversionError) {
  Place place;
  place.settings.Save("frmNotesWidth", "wide");
  EXPECT_THROW(RestoreWindow(place.settings, place.form), std::invalid_argument);
}

// A form that can't be drawn smaller than it was designed.
class DesignedForm : public Form {
 public:
  using Form::Form;
  void Load(const UserSettings& settings) {
    settings_ = &settings;
    LoadForm();
  }

 private:
  void OnLoad() override { RestoreWindow(*settings_, *this); }
  void OnResize() override { FitMinimumSize(*this, 6000, 3930); }
  const UserSettings* settings_ = nullptr;
};

TEST(WindowPlace, ARestoredSizeBelowTheMinimumGrowsToIt) {
  Place place;
  place.settings.Save("frmSmallWidth", "100");
  place.settings.Save("frmSmallHeight", "5000");
  DesignedForm form(place.desktop, "frmSmall", "Small");
  form.Load(place.settings);
  EXPECT_EQ(form.Width(), 6000);
  EXPECT_EQ(form.Height(), 5000);
}

TEST(WindowPlace, AnEdgeAtNoughtIsAPlaceLikeAnyOther) {
  Place place;
  EXPECT_FALSE(place.form.HasPosition());
  place.form.SetPosition(0, 0);
  EXPECT_TRUE(place.form.HasPosition());
}

TEST(ControlPlaces, AreKeptUnderTheCaption) {
  Place place;
  SaveControlPlace(place.settings, place.label.Caption(), {10, 20, 300, 400.25F, 0});
  EXPECT_EQ(place.Stored("Main list Top"), "10");
  EXPECT_EQ(place.Stored("Main list Left"), "20");
  EXPECT_EQ(place.Stored("Main list Width"), "300");
  EXPECT_EQ(place.Stored("Main list Height"), "400.25");
  EXPECT_EQ(place.Stored("Main list State"), "0");
  const ControlPlace back = RestoreControlPlace(place.settings, place.label.Caption(), {1, 2, 3, 4, 5});
  EXPECT_EQ(std::tuple(back.top, back.left, back.width, back.height, back.state),
            std::tuple(10.0F, 20.0F, 300.0F, 400.25F, 0));
}

TEST(ControlPlaces, OnlyInStateNoughtIsMoreThanTheStateKept) {
  Place place;
  SaveControlPlace(place.settings, place.label.Caption(), {10, 20, 300, 400, 1});
  EXPECT_EQ(place.Stored("Main list State"), "1");
  EXPECT_EQ(place.Stored("Main list Top"), "(none)");
  const ControlPlace back = RestoreControlPlace(place.settings, place.label.Caption(), {1, 2, 3, 4, 0});
  EXPECT_EQ(std::tuple(back.top, back.left, back.width, back.height, back.state),
            std::tuple(1.0F, 2.0F, 3.0F, 4.0F, 1));
}

TEST(MinimumSize, GrowsAFormToItEachWayForItself) {
  Place place;
  FitMinimumSize(place.form, 5000, 4000);
  EXPECT_EQ(place.form.Width(), 6000);
  EXPECT_EQ(place.form.Height(), 4000);
}

TEST(MinimumSize, BelowOneItIsSixHundredFortyByFourHundredEightyPixels) {
  Place place;
  FitMinimumSize(place.form, 0, 0.5F);
  EXPECT_EQ(place.form.Width(), 9600);
  EXPECT_EQ(place.form.Height(), 7200);
}

TEST(MinimumSize, LeavesAMinimisedOrMaximisedFormAlone) {
  for (const WindowState state : {WindowState::Minimized, WindowState::Maximized}) {
    Place place;
    place.form.SetState(state);
    FitMinimumSize(place.form, 9000, 9000);
    EXPECT_EQ(place.form.Width(), 6000);
    EXPECT_EQ(place.form.Height(), 3930);
  }
}

}  // namespace
}  // namespace lantos::ui
