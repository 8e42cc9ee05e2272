#include "host/widgets/files/FileBrowserTestSupport.h"

#include <zowidgets/export/SimpleFileBrowser.h>

namespace {

using SimpleFileBrowserTest = FileBrowserTest;

TEST_F(SimpleFileBrowserTest, ItHasOneResizeableNameColumnAndNoPathBox) {
  SimpleFileBrowser* simple = open<SimpleFileBrowser>();
  EXPECT_STREQ(simple->idstring(), "SimpleFileBrowser");
  std::vector<FileBrowserBase::ColumnDefinition> const columns = simple->getColumnDefinitions();
  ASSERT_EQ(columns.size(), 1u);
  EXPECT_EQ(columns[0].key, LightweightString<char>("name"));
  EXPECT_EQ(columns[0].description.getTitle().getString(), LightweightString<wchar_t>(L"Name"));
  EXPECT_TRUE(columns[0].description.isResizeable());
  EXPECT_EQ(simple->getTable()->numColumns(), 1);
  EXPECT_EQ(simple->getPathBox(), nullptr);
  EXPECT_EQ(simple->getTable()->getHeader(), nullptr);
}

TEST_F(SimpleFileBrowserTest, ItListsInNaturalOrderAndOpensFolders) {
  open<SimpleFileBrowser>();
  EXPECT_EQ(shownNames()[3], "file2.txt");
  EXPECT_EQ(shownNames()[4], "file10.txt");
  HeadlessInput::doubleClick(pointOnRow(0));
  pump();
  EXPECT_EQ(folderName(), "folder 2");
  HeadlessInput::key(kKeyBackspace);
  pump();
  EXPECT_EQ(browser->getFolder(), tree.wide());
}

} // namespace
