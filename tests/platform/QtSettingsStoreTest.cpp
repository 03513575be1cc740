// What the program keeps in the user's profile, and that the toolkit keeps nothing there.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

#include "platform/qt/QtSettingsStore.h"

namespace {

// A profile of its own, with nothing in it.
class Profile : public testing::Test {
 protected:
  Profile() { qputenv("XDG_CONFIG_HOME", directory_.path().toLocal8Bit()); }
  ~Profile() override {
    if (before_.isNull()) {
      qunsetenv("XDG_CONFIG_HOME");
    } else {
      qputenv("XDG_CONFIG_HOME", before_);
    }
  }

  QStringList Kept() const {
    return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  }
  QString PathOf(const char* file) const { return directory_.filePath(QString::fromUtf8(file)); }

 private:
  QByteArray before_ = qgetenv("XDG_CONFIG_HOME");
  QTemporaryDir directory_;
};

TEST_F(Profile, KeepsATextForTheNextStart) {
  QtSettingsStore().Save("Orvane", "Recent Files", "1", "/home/ann/\xC3\xA4, \"b\"; c=%d.trs");
  EXPECT_EQ(QtSettingsStore().Get("Orvane", "Recent Files", "1"), "/home/ann/\xC3\xA4, \"b\"; c=%d.trs");
  EXPECT_EQ(QtSettingsStore().Get("Orvane", "Recent Files", "2"), "") << "nothing was kept here";
  EXPECT_TRUE(QFile::exists(PathOf("Orvane/Orvane.conf")));
}

TEST_F(Profile, HoldsNothingOfTheToolkitAfterAFileWasChosen) {
  KeepNoSettingsOfTheToolkit();
  { QFileDialog dialog(nullptr, QString(), QDir::rootPath()); }  // keeps where it was when it goes
  EXPECT_EQ(Kept(), QStringList());
  QtSettingsStore().Save("Orvane", "Recent Files", "1", "a.trs");
  EXPECT_EQ(QtSettingsStore().Get("Orvane", "Recent Files", "1"), "a.trs");
  EXPECT_EQ(Kept(), QStringList(QStringLiteral("Orvane")));
}

}  // namespace
