#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "tools/archive/ArchiveInspector.h"
#include "tools/archive/ArchivePacker.h"

namespace {

constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kUsage = 2;

int Fail(const std::string& message) {
  std::fprintf(stderr, "tolva-archive: %s\n", message.c_str());
  return kRefused;
}

int Pack(const std::string& folder, const std::vector<std::pair<std::uint32_t, std::string>>& files,
         const std::string& baseName) {
  tolva::ArchivePacker packer;
  for (const auto& [id, path] : files) packer.AddFile(id, path);
  packer.AddFolder(folder);
  if (packer.Pack(baseName)) {
    std::printf("%s: %zu entries\n", baseName.c_str(), packer.GetCount());
    return kDone;
  }
  for (const std::string& refusal : packer.GetRefusals()) Fail(refusal);
  return Fail(baseName + " was not written");
}

int List(const std::string& baseName) {
  const tolva::ArchiveInspector archive(baseName);
  if (archive.GetFault() != nullptr) return Fail(baseName + ": " + archive.GetFault());
  const auto listing = archive.List();
  std::fputs(listing.text.c_str(), stdout);
  if (listing.brokenEntries == 0) return kDone;
  std::fflush(stdout);
  return Fail(baseName + ": broken entries: " + std::to_string(listing.brokenEntries));
}

int Extract(const std::string& baseName, std::uint32_t id, const std::string& file) {
  const tolva::ArchiveInspector archive(baseName);
  if (archive.GetFault() != nullptr) return Fail(baseName + ": " + archive.GetFault());
  const char* fault = archive.Extract(id, file);
  return fault == nullptr ? kDone : Fail(baseName + ", entry " + std::to_string(id) + ": " + fault);
}

std::pair<std::uint32_t, std::string> ParseFileOption(const std::string& option) {
  const std::size_t split = option.find('=');
  const std::uint32_t id = tolva::ArchivePacker::ParseId(option.substr(0, split));
  if (split == std::string::npos || id == 0) throw CLI::ValidationError("--file", option + " is not ID=PATH");
  return {id, option.substr(split + 1)};
}

int Run(int argc, char** argv) {
  CLI::App app{"Packs pictures, fonts and music into archives for the client, lists archives and extracts entries."};
  app.set_version_flag("--version", "tolva-archive " TOLVA_VERSION_TEXT);
  app.require_subcommand(1);
  std::string folder, baseName, file;
  std::vector<std::string> options;
  std::uint32_t id = 0;

  CLI::App* pack = app.add_subcommand("pack", "Write BASENAME.cci and BASENAME.cca from the files of a folder");
  pack->add_option("DIR", folder, "Folder of files named by id: 6101.png, 1.ogg")->required();
  pack->add_option("BASENAME", baseName, "The archive's path without its suffix")->required();
  pack->add_option("--file", options, "ID=PATH: a file from elsewhere; can be repeated")
      ->take_all()
      ->allow_extra_args(false);
  CLI::App* list = app.add_subcommand("list", "Print each entry's id, offset, size and kind, and a picture's size");
  list->add_option("BASENAME", baseName, "The archive's path without its suffix")->required();
  CLI::App* extract = app.add_subcommand("extract", "Write one entry to a file");
  extract->add_option("BASENAME", baseName, "The archive's path without its suffix")->required();
  extract->add_option("ID", id, "The entry's id")->required();
  extract->add_option("FILE", file, "The file to write")->required();

  std::vector<std::pair<std::uint32_t, std::string>> files;
  try {
    app.parse(argc, argv);
    for (const std::string& option : options) files.push_back(ParseFileOption(option));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  }
  if (pack->parsed()) return Pack(folder, files, baseName);
  return list->parsed() ? List(baseName) : Extract(baseName, id, file);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    return Fail(error.what());
  }
}
