#include "server/Reception.h"

#include "server/NamePolicy.h"
#include "server/common/ChatText.h"

namespace tolva {

std::string Reception::Refuse(const PacketLoginRequest& request) const {
  const std::string own = ToText(kVersion);
  const std::string theirs = ToText(request);
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
