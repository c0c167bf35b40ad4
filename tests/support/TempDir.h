#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace tolva::test {

// Makes a new directory the working directory for the lifetime of the object, then removes it and restores the old one.
class TempDir {
 public:
  TempDir() : mBefore(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tolva-test-XXXXXX").string();
    std::filesystem::current_path(::mkdtemp(pattern.data()));
    mPath = pattern;
  }
  ~TempDir() {
    std::filesystem::current_path(mBefore);
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

 private:
  std::filesystem::path mBefore;
  std::filesystem::path mPath;
};

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFile(const std::filesystem::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace tolva::test
