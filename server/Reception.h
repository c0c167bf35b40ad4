#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/LoginPackets.h"

namespace tolva {

// Decides who comes in, and knows the names of all who are in, wherever they are. Passwords are not looked at: there
// are no accounts.
class Reception {
 public:
  explicit Reception(std::size_t maxUsers) : mMaxUsers(maxUsers) {}

  // Why this request is denied, as a sentence for the player; empty when it is not.
  std::string Refuse(const PacketLoginRequest& request) const;
  // Takes up a name that Refuse has let pass.
  void Admit(std::string_view name);
  void Release(std::string_view name);

  // In alphabetical order, capitals and small letters alike.
  std::vector<std::string> GetNames() const;

 private:
  std::size_t mMaxUsers;
  std::map<std::string, std::string> mNamesByFolded;
};

}  // namespace tolva
