#include "server/Reception.h"

#include "server/ChatText.h"
#include "server/NamePolicy.h"

namespace tolva {
namespace {

std::string GetVersionText(const VersionNumbers& version) {
  return std::to_string(version.mUintVersionMajor) + '.' + std::to_string(version.mUintVersionMinor) + '.' +
         std::to_string(version.mUintVersionBugfix);
}

}  // namespace

std::string Reception::Refuse(const PacketLoginRequest& request) const {
  const std::string own = GetVersionText({kVersionMajor, kVersionMinor, kVersionBugfix});
  const std::string theirs = GetVersionText(request);
  if (theirs != own) return "Your client is version " + theirs + ". Please install version " + own + ".";
  if (std::string refusal = RefuseName(request.mStrLogin); !refusal.empty()) return refusal;
  if (mNamesByFolded.contains(FoldCase(request.mStrLogin)))
    return "That name is in use. Choose another one, or wait half a minute if it was you.";
  if (mNamesByFolded.size() >= mMaxUsers) return "The server is full. Please try again later.";
  return "";
}

void Reception::Admit(std::string_view name) { mNamesByFolded.emplace(FoldCase(name), name); }

void Reception::Release(std::string_view name) { mNamesByFolded.erase(FoldCase(name)); }

std::vector<std::string> Reception::GetNames() const {
  std::vector<std::string> names;
  for (const auto& [folded, name] : mNamesByFolded) names.push_back(name);
  return names;
}

}  // namespace tolva
