#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/LoginPackets.h"

namespace tolva {

// Decides who may log in, and knows the names of all logged-in users. Ignores passwords: there are no accounts.
class Reception {
 public:
  explicit Reception(std::size_t maxUsers) : mMaxUsers(maxUsers) {}

  // Why this request is denied, as a sentence for the player; empty when it is not.
  std::string Refuse(const PacketLoginRequest& request) const;
  // Registers a name that Refuse has accepted.
  void Admit(std::string_view name);
  void Release(std::string_view name);

  // In alphabetical order, whatever the case.
  std::vector<std::string> GetNames() const;

 private:
  std::size_t mMaxUsers;
  std::map<std::string, std::string> mNamesByFolded;
};

}  // namespace tolva
