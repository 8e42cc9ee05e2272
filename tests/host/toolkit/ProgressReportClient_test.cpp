#include <zowidgets/host/toolkit/ProgressReportClient.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

// Keeps every report the client hears, as a panel would show it.
struct RecordingClient : ProgressReportClient {
  std::vector<ProgressSnapshot> heard;
  void handleProgressUpdate(ProgressSnapshot const& snapshot) override { heard.push_back(snapshot); }
  float last() const { return heard.empty() ? -1.0f : heard.back().progress; }
};

struct Picture : iObject {};

TEST(ProgressReportClient, ProgressWithoutSubTasksIsProgressOfTheWhole) {
  RecordingClient client;
  client.updateProgress(0.25, L"Reading");
  ASSERT_EQ(client.heard.size(), 1u);
  EXPECT_FLOAT_EQ(client.last(), 0.25f);
  EXPECT_EQ(client.heard.back().text, L"Reading");
}

TEST(ProgressReportClient, ProgressOutsideZeroToOneIsClamped) {
  RecordingClient client;
  client.updateProgress(1.7, L"");
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
  client.updateProgress(-3.0, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.0f);
}

TEST(ProgressReportClient, EqualSubTasksMapTheirProgressIntoTheirShare) {
  RecordingClient client;
  client.startSubTasks(4);
  EXPECT_FLOAT_EQ(client.last(), 0.0f);
  client.updateProgress(0.5, L"first half");
  EXPECT_FLOAT_EQ(client.last(), 0.125f);
  client.nextSubTask();
  EXPECT_FLOAT_EQ(client.last(), 0.25f);
  client.updateProgress(1.0, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.5f);
  client.endSubTasks();
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
}

TEST(ProgressReportClient, WeightedSubTasksTakeSharesByWeight) {
  RecordingClient client;
  client.startSubTasks(std::vector<unsigned long>{1, 3});
  client.updateProgress(1.0, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.25f);
  client.nextSubTask();
  client.updateProgress(0.5, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.625f);
}

TEST(ProgressReportClient, NestedSubTasksSplitTheCurrentPart) {
  RecordingClient client;
  client.startSubTasks(2); // halves
  client.nextSubTask();    // the second half: 0.5 to 1
  client.startSubTasks(std::vector<unsigned long>{1, 1, 2});
  client.nextSubTask();
  client.nextSubTask(); // the last part: 0.75 to 1
  client.updateProgress(0.5, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.875f);
  client.endSubTasks();
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
  client.endSubTasks();
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
  client.updateProgress(0.4, L""); // the whole again
  EXPECT_FLOAT_EQ(client.last(), 0.4f);
}

TEST(ProgressReportClient, ZeroWeightsAndNoPartsAreHandledWithoutDividingByZero) {
  RecordingClient client;
  client.startSubTasks(0);
  EXPECT_TRUE(client.heard.empty());
  client.startSubTasks(std::vector<unsigned long>{0, 0});
  client.nextSubTask();
  EXPECT_FLOAT_EQ(client.last(), 0.5f);
  client.endSubTasks();
  client.startSubTasks(std::vector<unsigned long>{0, 5});
  client.updateProgress(1.0, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.0f); // a part of no weight takes no share
}

TEST(ProgressReportClient, NextAfterTheLastPartStaysAtTheEndOfTheSplit) {
  RecordingClient client;
  client.startSubTasks(2);
  client.nextSubTask();
  client.nextSubTask();
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
  client.nextSubTask();
  EXPECT_FLOAT_EQ(client.last(), 1.0f);
  client.updateProgress(0.0, L"");
  EXPECT_FLOAT_EQ(client.last(), 0.5f); // still in the last part
}

TEST(ProgressReportClient, EndAndNextWithoutSubTasksReportNothing) {
  RecordingClient client;
  client.endSubTasks();
  client.nextSubTask();
  EXPECT_TRUE(client.heard.empty());
}

TEST(ProgressReportClient, ChangesOfPartKeepTheLastText) {
  RecordingClient client;
  client.startSubTasks(2);
  client.updateProgress(0.5, L"Frame 12");
  client.nextSubTask();
  EXPECT_EQ(client.heard.back().text, L"Frame 12");
}

TEST(ProgressReportClient, TheThumbnailSetGoesWithEveryReportUntilReset) {
  RecordingClient client;
  Zo::Ptr<iObject> picture(new Picture);
  client.setThumbnail(picture);
  EXPECT_EQ(client.getThumbnail(), picture);
  client.updateProgress(0.1, L"");
  EXPECT_EQ(client.heard.back().thumbnail, picture);
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.2f;
  client.updateProgress(snapshot);
  EXPECT_EQ(client.heard.back().thumbnail, picture);
  Zo::Ptr<iObject> newer(new Picture);
  snapshot.thumbnail = newer;
  client.updateProgress(snapshot);
  EXPECT_EQ(client.getThumbnail(), newer);
  client.reset();
  EXPECT_FALSE(client.getThumbnail());
  EXPECT_FLOAT_EQ(client.last(), 0.0f);
  EXPECT_FALSE(client.heard.back().thumbnail);
}

TEST(ProgressReportClient, ASnapshotInsideASubTaskIsMappedAndKeepsItsItem) {
  RecordingClient client;
  client.startSubTasks(2);
  client.nextSubTask();
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.5f;
  snapshot.text = L"Writing";
  snapshot.item = Zo::Ptr<iObject>(new Picture);
  client.updateProgress(snapshot);
  EXPECT_FLOAT_EQ(client.last(), 0.75f);
  EXPECT_EQ(client.heard.back().item, snapshot.item);
  EXPECT_EQ(client.heard.back().text, L"Writing");
}

} // namespace
