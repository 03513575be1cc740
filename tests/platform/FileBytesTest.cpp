// What is read of a path, whatever it leads to.
#include "platform/FileBytes.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <thread>

#include "support/TemporaryDirectory.h"

namespace {

constexpr const char* NoFile = "it is a pipe or a device, not a file";

std::string PutPipe(const TemporaryDirectory& directory, const std::string& name) {
  EXPECT_EQ(mkfifo((directory / name).c_str(), 0600), 0);
  return directory / name;
}

std::string PutSocket(const TemporaryDirectory& directory, const std::string& name) {
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  (directory / name).copy(address.sun_path, sizeof address.sun_path - 1);
  const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
  EXPECT_EQ(bind(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  close(socketNumber);
  return directory / name;
}

}  // namespace

TEST(ReadWholeFile, GivesAllBytes) {
  const TemporaryDirectory directory;
  std::string bytes = "a\r\n\n\r";
  for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(static_cast<unsigned char>(i % 256));
  const FileBytes read = ReadWholeFile(directory.Put("a", bytes));
  EXPECT_EQ(read.Problem, "");
  EXPECT_TRUE(read.Bytes == bytes);
}

TEST(ReadWholeFile, AnEmptyFileIsNoProblem) {
  const TemporaryDirectory directory;
  const FileBytes read = ReadWholeFile(directory.Put("a", ""));
  EXPECT_EQ(read.Problem, "");
  EXPECT_EQ(read.Bytes, "");
}

TEST(ReadWholeFile, TellsWhyItCannotRead) {
  const TemporaryDirectory directory;
  EXPECT_EQ(ReadWholeFile(directory / "missing").Problem, "the file cannot be opened for reading");
  EXPECT_EQ(ReadWholeFile(directory / "").Problem, "it is a directory, not a file");
  EXPECT_EQ(ReadWholeFile("").Problem, "the file cannot be opened for reading");
}

TEST(ReadWholeFile, TakesAPathBeyondAscii) {
  const TemporaryDirectory directory;
  directory.Put("Fachwerk Größe 日本.trs", "text");
  EXPECT_EQ(ReadWholeFile(directory / "Fachwerk Größe 日本.trs").Bytes, "text");
  EXPECT_TRUE(FileExists(directory / "Fachwerk Größe 日本.trs"));
}

// A pipe without a writer would keep the reader waiting for ever.
TEST(ReadWholeFile, RefusesPipesSocketsAndDevicesAtOnce) {
  const TemporaryDirectory directory;
  for (const std::string& path : {PutPipe(directory, "pipe"), PutSocket(directory, "socket"),
                                  std::string("/dev/zero"), std::string("/dev/null")}) {
    EXPECT_EQ(ReadWholeFile(path).Problem, NoFile) << path;
    EXPECT_FALSE(FileExists(path)) << path;
  }
}

TEST(ReadWholeFile, ReadsAPipeWhenItMay) {
  const TemporaryDirectory directory;
  const std::string path = PutPipe(directory, "pipe");
  std::thread writer([&path] { std::ofstream(path) << std::string(200000, 'x'); });
  const FileBytes read = ReadWholeFile(path, PipesAndDevices::Taken);
  writer.join();
  EXPECT_EQ(read.Problem, "");
  EXPECT_TRUE(read.Bytes == std::string(200000, 'x'));
  EXPECT_EQ(ReadWholeFile("/dev/zero", PipesAndDevices::Taken).Problem, "the file is larger than any truss");
  EXPECT_EQ(ReadWholeFile(directory / "", PipesAndDevices::Taken).Problem, "it is a directory, not a file");
}

TEST(ReadWholeStream, ReadsToTheEnd) {
  std::istringstream stream("a\nb");
  EXPECT_EQ(ReadWholeStream(stream).Bytes, "a\nb");
}

TEST(FileExists, IsTrueForWhatCanBeOpened) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(FileExists(directory.Put("a", "")));
  EXPECT_FALSE(FileExists(directory / "missing"));
  EXPECT_FALSE(FileExists(directory / ""));
  EXPECT_FALSE(FileExists(""));
}
