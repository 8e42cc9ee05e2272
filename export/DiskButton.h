#pragma once

#include <zowidgets/host/shell/DiskManager.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <map>
#include <vector>

// A drop-down of the machine's drives, each with its size ("Home||(1.8 TB)"),
// and, with allowAuto, a last row that leaves the choice to the program. The
// list follows DiskManager: a drive plugged in or removed rebuilds the menu
// and the chosen drive stays chosen while it is there.
class ZO_API DiskButton : public DropDownMenuButton {
public:
  struct InitArgs : DropDownMenuButton::InitArgs {
    InitArgs() = default;
    explicit InitArgs(XY<int> size) : DropDownMenuButton::InitArgs({}, 0, size) {}
    DriveId drive; // the first drive when empty
    bool allowAuto = false;
  };

  explicit DiskButton(InitArgs const& args);
  char const* idstring() const override { return "DiskButton"; }

  // The drive shown; DriveId() when the automatic row is.
  DriveId getCurrentDrive() const;
  // Shows another drive; true when it changed.
  bool setCurrentDrive(DriveId const& drive);
  void setAllowAuto(bool allow);
  bool allowsAuto() const noexcept { return allowAuto_; }

  // The rows for DiskManager's drives, in its order.
  static void getMenuItems(std::vector<UIString>& items, bool showSizes, bool allowAuto);
  // The width of a button that fits the widest row on this machine.
  static int calcWidth();
  // The label of the automatic row.
  static UIString autoLabel();

  void handleDiskManChange(DiskManagerEvent const& event);
  void init();
  void init(DriveId const& drive);

private:
  void chosenRow(int row);

  DriveId drive_;
  bool allowAuto_ = false;
  bool autoChosen_ = false;
  std::map<int, DriveId> driveOfItem_;
  Zo::Ptr<Zo::Guard> subscription_;
};

// A DiskButton with a legend on its left.
class ZO_API TitledDiskButton : public TitleGlob {
public:
  struct InitArgs : TitleGlob::InitArgs {
    InitArgs() = default;
    InitArgs(UIString const& legend, XY<int> size) : TitleGlob::InitArgs(size) { this->legend = legend; }
    DiskButton::InitArgs button;
  };

  explicit TitledDiskButton(InitArgs const& args);
  char const* idstring() const override { return "TitledDiskButton"; }

  DiskButton& getButton() const noexcept { return *button_; }
  DriveId getCurrentDrive() const { return button_->getCurrentDrive(); }
  bool setCurrentDrive(DriveId const& drive) { return button_->setCurrentDrive(drive); }
  void setAllowAuto(bool allow) { button_->setAllowAuto(allow); }
  // Rebuilds the button's rows; the width argument is kept for callers that
  // pass the row's width, which the legend and button already share.
  void init(unsigned short width);

private:
  DiskButton* button_ = nullptr;
};
