#pragma once

namespace tolva {

// The sections and keys of client.ini, the client's settings. README.md says which values they take,
// docs/protocol.md who reads them.

constexpr char kSettingsFile[] = "client.ini";

// Where the game server listens.
constexpr char kNetworkSection[] = "NETWORK";
constexpr char kHostKey[] = "Host";
constexpr char kPortKey[] = "Port";

// The video mode of the next start, in pixels; the client writes it, too.
constexpr char kDisplaySection[] = "DISPLAY";
constexpr char kWidthKey[] = "Width";
constexpr char kHeightKey[] = "Height";
constexpr char kFullScreenKey[] = "Fullscreen";

}  // namespace tolva
