// Any bytes as the help file, its list of contents, a topic or the name of a page. Only the very file that
// was built with the program is opened; lists and topics are read as far as they are such.
#include <QFile>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "InputBytes.h"
#include "MemoryFolder.h"
#include "Require.h"
#include "app/HelpFile.h"
#include "app/HelpTopics.h"

namespace {

const QByteArray& BuiltBytes() {
  static const QByteArray built = [] {
    QFile file(QStringLiteral(ORVANE_HELP_FILE));
    Require(file.open(QIODevice::ReadOnly), "the help was built");
    return file.readAll();
  }();
  return built;
}

// The help file with some of its bytes changed, by three bytes of place and one of value each.
QByteArray Damaged(InputBytes& input) {
  QByteArray bytes = BuiltBytes();
  while (!input.IsEmpty()) {
    qsizetype place = 0;
    for (int i = 0; i < 3; ++i) place = 256 * place + input.Below(256);
    bytes[place % bytes.size()] = static_cast<char>(input.Below(256));
  }
  return bytes;
}

void CheckFile(const QByteArray& bytes) {
  static const MemoryFolder folder;
  const QString path = QString::fromStdString(folder.Path() / "help.chm");
  QFile file(path);
  Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "a help file is put");
  file.close();
  HelpFile help;
  const bool isOpen = help.Open(path);
  Require(isOpen == (bytes == BuiltBytes()), "only the help that was built with the program is opened");
  Require(isOpen == help.Problem().isEmpty(), "who opens no help says why");
  Require(isOpen == help.Contains(QStringLiteral("index.htm")), "what is opened has its first page");
}

void CheckContents(std::string_view list) {
  for (const HelpContentsEntry& entry : ReadHelpContents(list)) {
    Require(entry.Level >= 0 && entry.Level <= static_cast<int>(list.size()) / 4,
            "levels are those of lists");
    Require(entry.Title.size() <= list.size() && entry.Page.size() <= list.size(), "texts are from the list");
  }
}

void CheckTopic(const std::string& topic) {
  const std::optional<HelpTopicPlace> place = PlaceOfHelpTopic(topic);
  if (!place) return;
  Require(!place->File.empty() && !place->Page.empty(), "a topic has a file and a page");
  Require(place->Page.front() != '/' && place->Page.find('\\') == std::string::npos,
          "a page is named as inside the file");
  Require(place->File.size() + place->Page.size() + 2 <= topic.size(), "both are parts of the topic");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const int choice = input.Below(256);
  if (choice < 128) {
    CheckContents(input.Rest());
  } else if (choice < 192) {
    CheckTopic(std::string(input.Rest()));
  } else if (choice < 255) {
    CheckFile(QByteArray(input.Rest().data(), static_cast<qsizetype>(input.Rest().size())));
  } else {
    CheckFile(Damaged(input));  // takes longest: all of it is hashed
  }
  return 0;
}
