#include <zowidgets/export/DiskButton.h>

#include <zowidgets/host/base/ByteSizes.h>

UIString DiskButton::autoLabel() { return UIString(L"Automatic"); }

void DiskButton::getMenuItems(std::vector<UIString>& items, bool showSizes, bool allowAuto) {
  for (MediaDrive const& drive : DiskManager::instance().drives()) {
    LightweightString<wchar_t> label = drive.getUserName();
    if (showSizes)
      label += L"||(" + bytesAsString(drive.sizeInMegabytes << 20, 1) + L")";
    items.emplace_back(label);
  }
  if (allowAuto)
    items.push_back(autoLabel());
}

int DiskButton::calcWidth() {
  std::vector<UIString> items;
  getMenuItems(items, true, true);
  return DropDownMenuButton::calcWidth(items);
}

DiskButton::DiskButton(InitArgs const& args)
    : DropDownMenuButton(args), drive_(args.drive), allowAuto_(args.allowAuto) {
  setSelectionHook([this](int row) { chosenRow(row); });
  init(drive_);
}

void DiskButton::init() { init(drive_); }

void DiskButton::init(DriveId const& drive) {
  std::vector<UIString> items;
  getMenuItems(items, true, allowAuto_);
  driveOfItem_.clear();
  std::vector<MediaDrive> const& drives = DiskManager::instance().drives();
  for (std::size_t i = 0; i < drives.size(); ++i)
    driveOfItem_[static_cast<int>(i)] = drives[i].id();
  int index = DiskManager::instance().getDriveIndex(drive);
  if (autoChosen_ && allowAuto_)
    index = static_cast<int>(drives.size());
  else
    autoChosen_ = false;
  drive_ = index >= 0 && index < static_cast<int>(drives.size()) ? drives[index].id() : drive;
  setStrings(items, std::max(0, index), kNoRedraw);
  if (!subscription_)
    subscription_ =
        DiskManager::instance().addListener([this](DiskManagerEvent const& event) { handleDiskManChange(event); });
}

void DiskButton::handleDiskManChange(DiskManagerEvent const& event) {
  if (event.kind != DiskManagerEvent::kDrivesChanged)
    return;
  bool const gone = DiskManager::instance().getDriveIndex(drive_) < 0;
  init(gone ? DriveId() : drive_);
  invalidate();
}

DriveId DiskButton::getCurrentDrive() const { return autoChosen_ ? DriveId() : drive_; }

bool DiskButton::setCurrentDrive(DriveId const& drive) {
  if (drive == drive_ && !autoChosen_)
    return false;
  autoChosen_ = false;
  drive_ = drive;
  init(drive_);
  invalidate();
  return true;
}

void DiskButton::setAllowAuto(bool allow) {
  allowAuto_ = allow;
  init(drive_);
  invalidate();
}

void DiskButton::chosenRow(int row) {
  auto const found = driveOfItem_.find(row);
  autoChosen_ = found == driveOfItem_.end() && allowAuto_;
  if (found != driveOfItem_.end())
    drive_ = found->second;
}

TitledDiskButton::TitledDiskButton(InitArgs const& args) : TitleGlob(args) {
  DiskButton::InitArgs buttonArgs = args.button;
  if (buttonArgs.size.x <= 0)
    buttonArgs.size = XY<int>(std::max(1, args.size.x - calcLegendWidth(args.legend)), args.size.y);
  button_ = createChild<DiskButton>(buttonArgs, UserTopRight(0, 0));
  setChildGlob(button_);
}

void TitledDiskButton::init(unsigned short) { button_->init(); }
