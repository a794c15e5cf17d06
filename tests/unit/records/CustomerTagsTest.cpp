#include "CustomersFixture.h"
#include "records/Customers.h"

namespace lantos::test {
namespace {

// --- the tag array

TEST_F(CustomersTest, AnEmptyTagFileGivesAnEmptyArrayWithoutAnError) {
  Put(kCustomerTagFile, "");
  EXPECT_TRUE(customers.LoadCustomerTags());
  EXPECT_EQ(customers.Count(), 0U);
}

TEST_F(CustomersTest, AnAbsentTagFileIsMadeEmptyByTheOpening) {
  EXPECT_TRUE(customers.LoadCustomerTags());
  EXPECT_TRUE(std::filesystem::exists(PathOf(kCustomerTagFile)));
  EXPECT_EQ(customers.Count(), 0U);
}

TEST_F(CustomersTest, ATagWithTheNumberZeroInTheFileIsDroppedOnLoad) {
  Image tags;
  tags.Append(CustomerTagImage(7, "A,", 0)).Append(CustomerTagImage(0, "B,", 317));
  tags.Append(CustomerTagImage(9, "C,", 634));
  Put(kCustomerTagFile, tags);
  customers.LoadCustomerTags();
  ASSERT_EQ(customers.Count(), 2U);
  EXPECT_EQ(customers.Tag(1).Get(customertag::NameKey), "C,");
}

TEST_F(CustomersTest, AllBlocksAreReadAndTheLastOneMayBeShort) {
  for (const std::int32_t count : {175, 176, 177, 352, 1000}) {
    PutCustomers(count);
    customers.LoadCustomerTags();
    ASSERT_EQ(customers.Count(), static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
      ASSERT_EQ(customers.Tag(static_cast<std::size_t>(i)).Get(customertag::Number), i + 1);
    }
  }
}

TEST_F(CustomersTest, EmptySlotsAcrossBlocksAreClosedUpInFileOrder) {
  Image tags;
  std::vector<std::int32_t> expected;
  for (std::int32_t i = 1; i <= 700; ++i) {
    const bool empty = i % 3 == 0 || (i > 176 && i <= 352);
    tags.Append(CustomerTagImage(empty ? 0 : i, "N,", 0));
    if (!empty) expected.push_back(i);
  }
  Put(kCustomerTagFile, tags);
  customers.LoadCustomerTags();
  std::vector<std::int32_t> numbers;
  for (std::size_t i = 0; i < customers.Count(); ++i) numbers.push_back(customers.Tag(i).Get(customertag::Number));
  EXPECT_EQ(numbers, expected);
}

TEST_F(CustomersTest, ATagCutOffByTheEndOfTheFileIsZeroBehindIt) {
  const std::string tags = CustomerTagImage(7, "Adams,John", 1);
  Put(kCustomerTagFile, tags.substr(0, 9));
  customers.LoadCustomerTags();
  ASSERT_EQ(customers.Count(), 1U);
  EXPECT_EQ(customers.Tag(0).Get(customertag::NameKey), "Adams");
  EXPECT_EQ(customers.Tag(0).Get(customertag::Offset), 0);
}

TEST_F(CustomersTest, OfMoreThan32767TagsTheFirst32767AreHeldWithoutAMessage) {
  std::string tags(std::size_t{33000} * 96, '\0');
  for (std::size_t i = 0; i < 33000; ++i) {
    tags[i * 96] = static_cast<char>((i + 1) & 0xFFU);
    tags[i * 96 + 1] = static_cast<char>((i + 1) >> 8U);
  }
  Put(kCustomerTagFile, tags);
  EXPECT_TRUE(customers.LoadCustomerTags());
  EXPECT_EQ(customers.Count(), 32767U);
  EXPECT_EQ(customers.FindCustomerTag(32767), 32766U);
  EXPECT_EQ(customers.FindCustomerTag(32768), 32767U);
  // Nor can one be added: it would take the place of another one's tag.
  MakeCurrentCustomer(40000, "Late", "");
  EXPECT_THROW(customers.WriteCustomer(), std::length_error);
  EXPECT_EQ(BytesOf(kCustomerTagFile), tags);
}

TEST_F(CustomersTest, LoadingTriesThreeTimesSilentlyASecondApartAndThenAsksEachTime) {
  PutCustomers(2);
  SharedFile other = HeldByAnother(kCustomerTagFile);
  const LocalTime start = clock.Now();
  LocalTime asked;
  desktop.WillAnswer([&](const ui::Box&) {
    asked = clock.Now();
    return Answer::Ok;
  });
  desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_EQ(clock.Now(), asked);
    other.Close();
    return Answer::Ok;
  });
  EXPECT_TRUE(customers.LoadCustomerTags());
  EXPECT_EQ(customers.Count(), 2U);
  EXPECT_GE(asked.MillisecondsSince(start), 2000);
  EXPECT_LE(asked.MillisecondsSince(start), 3100);
  ExpectBox(desktop.boxes.at(0), "Open failure", "Customer tags file locked by another user.", Buttons::OkCancel,
            Icon::None);
}

TEST_F(CustomersTest, CancelWhileLoadingLeavesTheTagsNotLoaded) {
  PutCustomers(2);
  customers.LoadCustomerTags();
  const SharedFile other = HeldByAnother(kCustomerTagFile);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.LoadCustomerTags());
  EXPECT_EQ(customers.Count(), 0U);
}

TEST_F(CustomersTest, OneCancelHoldsForAllLookUpsOfAReading) {
  PutCustomers(3);
  SharedFile other = HeldByAnother(kCustomerTagFile);
  desktop.WillAnswer(Answer::Cancel);
  {
    const Customers::Reading reading(customers);
    for (std::int32_t number = 1; number < 4; ++number) EXPECT_EQ(customers.LookupCustomer(number), nullptr);
  }
  EXPECT_EQ(desktop.boxes.size(), 1U);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(customers.LookupCustomer(1), nullptr) << "the next look-up asks anew";
  other.Close();
  const Customers::Reading reading(customers);
  EXPECT_EQ(LookedUpName(2), "Name2");
  EXPECT_EQ(desktop.boxes.size(), 2U);
}

TEST_F(CustomersTest, FindCustomerTagOnAnEmptyArrayReturnsZeroWhichEqualsTheCount) {
  EXPECT_EQ(customers.FindCustomerTag(5), 0U);
  EXPECT_EQ(customers.Count(), 0U);
}

TEST_F(CustomersTest, ATagThatIsNotFoundLeavesCurrentTagAlone) {
  PutCustomers(3);
  customers.LoadCustomerTags();
  EXPECT_EQ(customers.FindCustomerTag(2), 1U);
  EXPECT_EQ(customers.FindCustomerTag(99), 3U);
  EXPECT_EQ(customers.CurrentTag.Get(customertag::Number), 2);
}

TEST_F(CustomersTest, OfTwoTagsWithOneNumberTheFirstIsFound) {
  Image tags;
  tags.Append(CustomerTagImage(5, "First,", 0)).Append(CustomerTagImage(5, "Second,", 317));
  Put(kCustomerTagFile, tags);
  customers.LoadCustomerTags();
  EXPECT_EQ(customers.FindCustomerTag(5), 0U);
  EXPECT_EQ(customers.CurrentTag.Get(customertag::NameKey), "First,");
}

TEST_F(CustomersTest, EveryNumberIsFoundWhereItStandsHoweverTheyLie) {
  Image tags;
  std::vector<std::int32_t> numbers = {-1, 1, 65536, -2147483647 - 1, 2147483647, 131072, 64, 128};
  for (std::int32_t i = 0; i < 500; ++i) numbers.push_back(1000 + i * 65536);
  for (const std::int32_t number : numbers) tags.Append(CustomerTagImage(number, "N,", 0));
  Put(kCustomerTagFile, tags);
  customers.LoadCustomerTags();
  for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_EQ(customers.FindCustomerTag(numbers[i]), i);
  EXPECT_EQ(customers.FindCustomerTag(0), numbers.size());
}

// --- reading

TEST_F(CustomersTest, AnOffsetOutsideTheFileIsToldAndTheLastRecordKept) {
  PutCustomers(1);
  for (const auto& [offset, printed] : {std::pair{317, "317"}, {-1, "-1"}, {-5, "-1"}, {2147483647, "2147483647"}}) {
    customers.CurrentTag = {};
    customers.CurrentTag.Put(customertag::Number, 8);
    customers.CurrentTag.Put(customertag::Offset, offset);
    MakeCurrentCustomer(3, "Kept", "");
    desktop.WillAnswer(Answer::Ok);
    EXPECT_FALSE(customers.ReadCustomer());
    EXPECT_EQ(CurrentLastname(), "Kept");
    ExpectBox(desktop.boxes.back(), "ReadCustomer()",
              std::string("Invalid file offset supplied to ReadCustomer = ") + printed, Buttons::Ok, Icon::None);
  }
}

TEST_F(CustomersTest, AnEqualNumberCountsAsInMemoryAlready) {
  PutCustomers(2);
  customers.LoadCustomerTags();
  customers.FindCustomerTag(2);
  MakeCurrentCustomer(2, "Changed on screen", "");
  EXPECT_TRUE(customers.ReadCustomer());
  EXPECT_EQ(CurrentLastname(), "Changed on screen");
}

TEST_F(CustomersTest, TheOffsetIsCheckedBeforeTheRecordInMemory) {
  PutCustomers(1);
  customers.CurrentTag.Put(customertag::Number, 3);
  customers.CurrentTag.Put(customertag::Offset, 5000);
  MakeCurrentCustomer(3, "", "");
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(customers.ReadCustomer());
}

TEST_F(CustomersTest, OffsetZeroIsTheFirstRecord) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  customers.MakeTagCurrent(0);
  EXPECT_TRUE(customers.ReadCustomer());
  EXPECT_EQ(CurrentLastname(), "Name1");
}

TEST_F(CustomersTest, AHeldDataFilePromptsAndCancelLeavesTheRecordUnread) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  customers.MakeTagCurrent(0);
  const SharedFile other = HeldByAnother(kCustomerFile);
  desktop.WillAnswer({Answer::Ok, Answer::Cancel});
  EXPECT_FALSE(customers.ReadCustomer());
  EXPECT_EQ(customers.CurrentCustomer, CustomerRecord());
  ExpectBox(desktop.boxes.at(1), "ReadCustomer()",
            "Customer data file locked by another user.\rClick OK to try again, or CANCEL to exit.", Buttons::OkCancel,
            Icon::Exclamation);
}

}  // namespace
}  // namespace lantos::test
