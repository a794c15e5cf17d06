#include "Fixture.h"
#include "records/MakesModels.h"

namespace lantos::test {
namespace {

class MakesModelsTest : public ShopTest {
 protected:
  MakesModelsTest() { environment.log.Open(); }
  std::string MakeNames() const {
    std::string all;
    for (const Make& make : makes.Makes()) all += make.Name + ";";
    return all;
  }
  std::string ModelNames() const {
    std::string all;
    for (const Model& model : makes.Models()) all += model.Make + " " + model.Name + ";";
    return all;
  }
  std::string File() const { return BytesOf(kMakeModelFile); }

  MakesModels& makes = records.makes;
};

TEST_F(MakesModelsTest, AMakeWithoutModelsHasANextOfMinusOne) {
  makes.AddMake("  Ford ");
  EXPECT_EQ(File(), std::string(MakeModelImage("Ford", -1, -1)));
  EXPECT_EQ(MakeNames(), "Ford;");
  EXPECT_EQ(makes.Makes()[0].Next, kNoLink);
  EXPECT_FALSE(makes.HasModels("Ford"));
}

TEST_F(MakesModelsTest, AModelAddedToAMakeBecomesTheFirstOfThatMakesModelsInFileWalkingOrder) {
  makes.AddMake("Ford");
  makes.AddModel("Ford", "Pinto");
  makes.AddModel("Ford", "Focus");
  EXPECT_EQ(ModelNames(), "Ford Pinto;Ford Focus;") << "the array grows at its end";
  makes.LoadMakes();
  EXPECT_EQ(ModelNames(), "Ford Focus;Ford Pinto;");
}

TEST_F(MakesModelsTest, TheModelThatWasFirstKeepsItsPrev) {
  makes.AddMake("Ford");
  makes.AddModel("Ford", "Pinto");
  makes.AddModel("Ford", "Focus");
  Image expected;
  expected.Append(MakeModelImage("Ford", -1, 58)).Append(MakeModelImage("Pinto", 0, -1));
  expected.Append(MakeModelImage("Focus", 0, 29));
  EXPECT_EQ(File(), std::string(expected));
}

TEST_F(MakesModelsTest, ABlankRecordIsSkippedOnLoadAsIsAnyModelMetByTheLinearScan) {
  Image file;
  file.Append(MakeModelImage("", -1, -1)).Append(MakeModelImage("Ford", -1, 87));
  file.Append(MakeModelImage("   ", -1, 87)).Append(MakeModelImage("Pinto", 29, -1));
  Put(kMakeModelFile, file);
  makes.LoadMakes();
  EXPECT_EQ(MakeNames(), "Ford;");
  EXPECT_EQ(ModelNames(), "Ford Pinto;");
}

TEST_F(MakesModelsTest, EachUpdateLogsItsOpening) {
  makes.AddMake("Ford");
  makes.AddModel("Ford", "Pinto");
  makes.DeleteModel("Ford", "Pinto");
  makes.DeleteMake("Ford");
  std::string expected;
  for (const std::string name : {"AddMake", "AddModel", "DeleteModel", "DeleteMake"}) {
    expected += name + ": Opened TQMAKMOD.DAT (update,fp=2)\nCloseFile: Closed file with pointer = 2\n";
  }
  EXPECT_EQ(Log(), expected);
}

// Its lists are as old as its start.
TEST_F(MakesModelsTest, WhatAnotherCopyHasAddedIsntAddedAgain) {
  MakesModels other(environment);
  other.LoadMakes();
  makes.AddMake("Ford");
  makes.AddModel("Ford", "Pinto");
  const std::string before = File();
  other.AddMake("Ford");
  other.AddModel("Ford", "Pinto");
  EXPECT_EQ(File(), before);
  EXPECT_TRUE(other.HasModel("Ford", "Pinto"));
}

TEST_F(MakesModelsTest, DeletingAModelInTheMiddleJoinsItsNeighbours) {
  Image file;
  file.Append(MakeModelImage("Ford", -1, 29)).Append(MakeModelImage("A", 0, 58)).Append(MakeModelImage("B", 0, 87));
  file.Append(MakeModelImage("C", 0, -1));
  Put(kMakeModelFile, file);
  makes.DeleteModel("Ford", "B");
  Image expected;
  expected.Append(MakeModelImage("Ford", -1, 29)).Append(MakeModelImage("A", 0, 87));
  expected.Append(MakeModelImage("", -1, -1)).Append(MakeModelImage("C", 29, -1));
  EXPECT_EQ(File(), std::string(expected));
}

TEST_F(MakesModelsTest, DeletingTheFirstAndTheLastModelKeepsTheChainWhole) {
  Image file;
  file.Append(MakeModelImage("Ford", -1, 29)).Append(MakeModelImage("A", 0, 58)).Append(MakeModelImage("B", 0, -1));
  Put(kMakeModelFile, file);
  makes.DeleteModel("Ford", "A");
  Image first;
  first.Append(MakeModelImage("Ford", -1, 58)).Append(MakeModelImage("", -1, -1)).Append(MakeModelImage("B", 0, -1));
  EXPECT_EQ(File(), std::string(first));
  makes.DeleteModel("Ford", "B");
  Image last;
  last.Append(MakeModelImage("Ford", -1, -1)).Append(MakeModelImage("", -1, -1)).Append(MakeModelImage("", -1, -1));
  EXPECT_EQ(File(), std::string(last));
}

TEST_F(MakesModelsTest, DeletedSlotsAreNeverReused) {
  makes.AddMake("Ford");
  makes.DeleteMake("Ford");
  makes.AddMake("Honda");
  Image expected;
  expected.Append(MakeModelImage("", -1, -1)).Append(MakeModelImage("Honda", -1, -1));
  EXPECT_EQ(File(), std::string(expected));
}

TEST_F(MakesModelsTest, WhatIsNotThereIsNotDeletedAndNothingIsAddedToIt) {
  PutGolden();
  makes.DeleteMake("Nash");
  makes.DeleteModel("Ford", "Nash");
  makes.DeleteModel("Nash", "Pinto");
  makes.AddModel("Nash", "Metropolitan");
  makes.DeleteMake("");
  EXPECT_EQ(File(), GoldenBytes(kMakeModelFile));
  EXPECT_TRUE(makes.Models().empty());
}

TEST_F(MakesModelsTest, NamesAreComparedExactly) {
  PutGolden();
  makes.LoadMakes();
  EXPECT_TRUE(makes.HasMake("Ford"));
  EXPECT_FALSE(makes.HasMake("FORD"));
  EXPECT_TRUE(makes.HasModel("Ford", "Pinto"));
  EXPECT_FALSE(makes.HasModel("Ford", "pinto"));
  EXPECT_FALSE(makes.HasModel("Toyota", "Pinto"));
  EXPECT_TRUE(makes.HasModels("Toyota"));
  EXPECT_FALSE(makes.HasModels("Chevrolet"));
}

TEST_F(MakesModelsTest, ADamagedChainThatComesBackEndsWhereItHasPassed) {
  Image file;
  file.Append(MakeModelImage("Ford", -1, 29)).Append(MakeModelImage("A", 0, 58)).Append(MakeModelImage("B", 29, 29));
  file.Append(MakeModelImage("Self", -1, 87));
  Put(kMakeModelFile, file);
  makes.LoadMakes();
  EXPECT_EQ(ModelNames(), "Ford A;Ford B;");
  makes.DeleteModel("Ford", "none");
  makes.DeleteModel("Self", "none");
  EXPECT_EQ(File(), std::string(file));
}

TEST_F(MakesModelsTest, DeletingBesideADamagedLinkDoesNotBlowTheFileUp) {
  Image file;
  file.Append(MakeModelImage("Ford", -1, 29)).Append(MakeModelImage("A", 0, 2000000000));
  Put(kMakeModelFile, file);
  makes.DeleteModel("Ford", "A");
  EXPECT_EQ(File().size(), 58U);
}

TEST_F(MakesModelsTest, TheCountOfADamagedFileIsTheWholeRecords) {
  Image file;
  file.Append(MakeModelImage("Ford", -1, -1)).Append(MakeModelImage("Honda", -1, -1));
  const std::string bytes = file;
  Put(kMakeModelFile, bytes.substr(0, 57));
  makes.LoadMakes();
  EXPECT_EQ(MakeNames(), "Ford;");
}

TEST_F(MakesModelsTest, ALockedFileIsAnErrorThatNobodyTraps) {
  PutGolden();
  const SharedFile other = HeldByAnother(kMakeModelFile, Access::Read, Deny::None);
  EXPECT_THROW(makes.LoadMakes(), FileError);
  EXPECT_THROW(makes.AddMake("Nash"), FileError);
  EXPECT_THROW(makes.AddModel("Ford", "Nash"), FileError);
  EXPECT_THROW(makes.DeleteModel("Ford", "Pinto"), FileError);
  EXPECT_THROW(makes.DeleteMake("Chevrolet"), FileError);
}

}  // namespace
}  // namespace lantos::test
