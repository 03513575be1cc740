#include "app/HelpViewer.h"

#include <QAction>
#include <QDesktopServices>
#include <QHeaderView>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "app/HelpBrowser.h"
#include "app/HelpFindBar.h"
#include "app/HelpIcons.h"
#include "app/HelpTopics.h"
#include "platform/qt/ScreenRoom.h"

namespace {

constexpr QSize StartSize(1040, 760);
constexpr int LeastContentsWidth = 290;
constexpr int ContentsWidthInLines = 19;  // in line heights
constexpr int RowAir = 7;                 // pixels between the lines of the contents
constexpr int PageRole = Qt::UserRole;

QString ContentsFile() { return QStringLiteral("contents.hhc"); }
QString FirstPage() { return QStringLiteral("index.htm"); }

bool MayBeOpened(const QUrl& address) {
  static const QStringList schemes = {QStringLiteral("http"), QStringLiteral("https"),
                                      QStringLiteral("mailto")};
  return address.isValid() && schemes.contains(address.scheme());
}

}  // namespace

HelpViewer::HelpViewer(MessageBox& messages, QWidget* parent)
    : QMainWindow(parent),
      messages_(messages),
      browser_(new HelpBrowser(file_)),
      contents_(new QTreeWidget),
      find_(new FindBar(*browser_)) {
  setObjectName(QStringLiteral("HelpViewer"));
  setWindowTitle(QStringLiteral("Orvane Help"));
  contents_->setObjectName(QStringLiteral("treContents"));
  contents_->setAccessibleName(QStringLiteral("Contents"));
  contents_->setHeaderHidden(true);

  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(browser_, 1);
  rows->addWidget(find_);
  auto* splitter = new QSplitter;
  splitter->addWidget(contents_);
  splitter->addWidget(column);
  splitter->setStretchFactor(1, 1);
  splitter->setCollapsible(1, false);
  setCentralWidget(splitter);
  resize(StartSize.boundedTo(WindowRoom(*this) * 0.95));
  const int contentsWidth =
      std::min(std::max(LeastContentsWidth, ContentsWidthInLines * fontMetrics().height()), width() / 3);
  splitter->setSizes({contentsWidth, width() - contentsWidth});

  CreateActions();
  CreateKeys();
  connect(browser_, &HelpBrowser::PageShown, this, &HelpViewer::PageChanged);
  connect(browser_, &HelpBrowser::OutwardLink, this, &HelpViewer::LeaveHelp);
  connect(browser_, &HelpBrowser::DeadLink, this,
          [this](const QString& page) { Say(QStringLiteral("The help has no topic %1.").arg(page)); });
  connect(contents_, &QTreeWidget::itemClicked, this, &HelpViewer::ShowContentsEntry);
  connect(contents_, &QTreeWidget::itemActivated, this, &HelpViewer::ShowContentsEntry);
}

// --- commands

QAction* HelpViewer::AddAction(const char* name, const QString& text, const QString& toolTip,
                               const QList<QKeySequence>& keys, HelpGlyph glyph) {
  auto* action = new QAction(HelpIcon(glyph), text, this);
  action->setObjectName(QString::fromLatin1(name));
  action->setShortcuts(keys);
  action->setToolTip(QStringLiteral("%1 (%2)").arg(toolTip, keys.front().toString(QKeySequence::NativeText)));
  addAction(action);
  return action;
}

void HelpViewer::CreateActions() {
  auto* bar = addToolBar(QStringLiteral("Help commands"));
  bar->setObjectName(QStringLiteral("HelpToolBar"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setIconSize(QSize(20, 20));
  const auto add = [this, bar](const char* name, const char* text, const char* toolTip,
                               const QList<QKeySequence>& keys, HelpGlyph glyph, auto handler) {
    QAction* action = AddAction(name, QString::fromLatin1(text), QString::fromLatin1(toolTip), keys, glyph);
    connect(action, &QAction::triggered, this, handler);
    bar->addAction(action);
    return action;
  };

  QAction* contents = add("actContents", "Contents", "Show or hide the contents", {Qt::Key_F9},
                          HelpGlyph::Contents, [this](bool on) { contents_->setVisible(on); });
  contents->setCheckable(true);
  contents->setChecked(true);
  QAction* back =
      add("actBack", "Back", "The page before", {QKeySequence(Qt::ALT | Qt::Key_Left), Qt::Key_Back},
          HelpGlyph::Back, [this] { browser_->backward(); });
  QAction* forward = add("actForward", "Forward", "The page after, when you went back",
                         {QKeySequence(Qt::ALT | Qt::Key_Right), Qt::Key_Forward}, HelpGlyph::Forward,
                         [this] { browser_->forward(); });
  for (QAction* action : {back, forward}) action->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  add("actHome", "Home", "The first page", {QKeySequence(Qt::ALT | Qt::Key_Home)}, HelpGlyph::Home,
      [this] { browser_->ShowPage(FirstPage()); });
  bar->addSeparator();
  add("actFind", "Find", "Find in this page", {QKeySequence(Qt::CTRL | Qt::Key_F)}, HelpGlyph::Find,
      [this] { find_->Open(); });
  bar->addSeparator();
  add("actZoomOut", "Zoom out", "Smaller", {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, HelpGlyph::ZoomOut,
      [this] { browser_->ZoomBy(-1); });
  QAction* reset = add("actZoomReset", "100 %", "Natural size", {QKeySequence(Qt::CTRL | Qt::Key_0)},
                       HelpGlyph::Find, [this] { browser_->ResetZoom(); });
  reset->setIcon({});
  connect(browser_, &HelpBrowser::ZoomChanged, reset,
          [reset](int percent) { reset->setText(QStringLiteral("%1 %").arg(percent)); });
  // On many keyboards the plus is a shifted equals sign.
  add("actZoomIn", "Zoom in", "Larger",
      {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}, HelpGlyph::ZoomIn,
      [this] { browser_->ZoomBy(1); });
}

void HelpViewer::CreateKeys() {
  const auto addKeys = [this](const char* name, const QString& text, const QList<QKeySequence>& keys,
                              auto handler) {
    connect(AddAction(name, text, text, keys, HelpGlyph::Find), &QAction::triggered, this, handler);
  };
  addKeys("actFindNext", QStringLiteral("Find next"), {Qt::Key_F3}, [this] { find_->FindNext(); });
  addKeys("actFindPrevious", QStringLiteral("Find previous"), {QKeySequence(Qt::SHIFT | Qt::Key_F3)},
          [this] { find_->FindPrevious(); });
  addKeys("actClose", QStringLiteral("Close"), {Qt::Key_Escape, QKeySequence(Qt::CTRL | Qt::Key_W)},
          [this] { GiveUpOrClose(); });
}

void HelpViewer::GiveUpOrClose() {
  if (find_->isVisible()) {
    find_->Dismiss();
  } else {
    close();
  }
}

// --- topics

bool HelpViewer::ShowTopic(const std::string& topicPath) {
  const std::optional<HelpTopicPlace> place = PlaceOfHelpTopic(topicPath);
  if (!place) {
    Say(QStringLiteral("This is no help topic: %1").arg(QString::fromStdString(topicPath)));
    return false;
  }
  const QString path = QString::fromStdString(place->File);
  if (!file_.IsOpen() || path != path_) {
    if (!file_.Open(path)) {
      Say(file_.Problem());
      return false;
    }
    path_ = path;
    FillContents();
  }
  const QString page = QString::fromStdString(place->Page);
  if (!browser_->ShowPage(page)) {
    Say(QStringLiteral("The help has no topic %1.").arg(page));
    return false;
  }
  BringUp();
  return true;
}

void HelpViewer::BringUp() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  browser_->setFocus();
}

void HelpViewer::FillContents() {
  contents_->clear();
  int widest = 0;
  const QByteArray list = file_.Read(ContentsFile());
  std::vector<QTreeWidgetItem*> branch = {contents_->invisibleRootItem()};  // the way down to the last entry
  for (const HelpContentsEntry& entry : ReadHelpContents(list.toStdString())) {
    branch.resize(std::min(branch.size(), static_cast<std::size_t>(entry.Level) + 1));
    auto* item = new QTreeWidgetItem(branch.back(), {QString::fromStdString(entry.Title)});
    item->setSizeHint(0, QSize(0, fontMetrics().height() + RowAir));
    item->setData(0, PageRole, QString::fromStdString(entry.Page));
    widest = std::max(widest, static_cast<int>(branch.size()) * contents_->indentation() +
                                  fontMetrics().horizontalAdvance(item->text(0)) + RowAir);
    branch.push_back(item);
  }
  contents_->expandAll();
  // In a narrow column one scrolls to the end of a title.
  contents_->header()->setMinimumSectionSize(widest);
}

void HelpViewer::ShowContentsEntry(const QTreeWidgetItem* entry) {
  const QString page = entry->data(0, PageRole).toString();
  if (!page.isEmpty() && page != browser_->Page()) browser_->ShowPage(page);
}

void HelpViewer::PageChanged(const QString& shown) {
  const QString title = browser_->documentTitle();
  setWindowTitle(title.isEmpty() ? QStringLiteral("Orvane Help")
                                 : QStringLiteral("%1 - Orvane Help").arg(title));
  const QString page = shown.section(u'#', 0, 0);
  for (QTreeWidgetItemIterator entry(contents_); *entry != nullptr; ++entry) {
    if ((*entry)->data(0, PageRole).toString() == page) return contents_->setCurrentItem(*entry);
  }
  contents_->setCurrentItem(nullptr);
}

// --- the way out

void HelpViewer::LeaveHelp(const QUrl& address) {
  const QString shown = QString::fromLatin1(address.toEncoded());
  if (!MayBeOpened(address)) {
    Say(QStringLiteral("The help does not open this address: %1").arg(shown));
    return;
  }
  const QString question =
      QStringLiteral("This link leads out of the help.  Do you want to open it?\n\n%1").arg(shown);
  const Message message{
      .Text = question.toStdString(), .Buttons = MessageButtons::YesNo, .Icon = MessageIcon::None};
  if (messages_.Show(message) == MessageAnswer::Yes && !QDesktopServices::openUrl(address)) {
    Say(QStringLiteral("This address could not be opened: %1").arg(shown));
  }
}

void HelpViewer::Say(const QString& text) {
  messages_.Show(Message{.Text = text.toStdString(), .Icon = MessageIcon::Exclamation});
}
