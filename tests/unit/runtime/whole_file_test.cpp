#include "core/runtime/whole_file.h"

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class WholeFile : public CoreTest {
  protected:
    const std::string Path = PathTo("file");
    std::string Bytes = "before";
};

// A disk that takes no file of more than a few bytes.
class SmallDisk {
  public:
    explicit SmallDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

TEST_F(WholeFile, ReadsUpToItsLimit) {
    WriteBytes(Path, std::string("a\0b", 3));
    EXPECT_EQ(ReadWholeFile(Path, 3, Bytes), ReadOutcome::Read);
    EXPECT_EQ(Bytes, std::string("a\0b", 3));
    EXPECT_EQ(ReadWholeFile(Path, 2, Bytes), ReadOutcome::Refused);
    EXPECT_EQ(Bytes, "");
}

TEST_F(WholeFile, TellsAMissingFileFromARefusedOne) {
    EXPECT_EQ(ReadWholeFile(Path, 10, Bytes), ReadOutcome::Missing);
    EXPECT_EQ(Bytes, "");
    EXPECT_EQ(ReadWholeFile(Folder.string(), 10, Bytes), ReadOutcome::Refused);
    EXPECT_EQ(ReadWholeFile("/dev/zero", 10, Bytes), ReadOutcome::Refused);
}

TEST_F(WholeFile, APipeDoesNotHoldUpTheReader) {
    ASSERT_EQ(::mkfifo(Path.c_str(), 0600), 0);
    EXPECT_EQ(ReadWholeFile(Path, 10, Bytes), ReadOutcome::Refused);
    EXPECT_FALSE(ReplaceWholeFile(Path, "x"));
}

TEST_F(WholeFile, AFullDiskLeavesTheOldContentAndNothingElse) {
    WriteBytes(Path, "the old content");
    {
        const SmallDisk disk(4);
        EXPECT_FALSE(ReplaceWholeFile(Path, "a longer new content"));
    }
    EXPECT_EQ(ReadBytes(Path), "the old content");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder), {}), 1);
    EXPECT_TRUE(ReplaceWholeFile(Path, "a longer new content"));
    EXPECT_EQ(ReadBytes(Path), "a longer new content");
}

TEST_F(WholeFile, ALinkToNothingYetCreatesItsTarget) {
    std::filesystem::create_symlink(PathTo("target"), Path);
    EXPECT_TRUE(ReplaceWholeFile(Path, "x"));
    EXPECT_EQ(ReadBytes(PathTo("target")), "x");
    EXPECT_TRUE(std::filesystem::is_symlink(Path));
}

}  // namespace
}  // namespace tarvokol
