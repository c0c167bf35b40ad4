#pragma once

#include <cstdint>

namespace tolva {

// The entries of the archive "Graphics" that the screens use. The pictures of ground and of things have no names here:
// the server sends their ids.
using PictureId = std::uint32_t;

constexpr PictureId kNoPicture = 0;

constexpr PictureId kPictureWindowIcon = 5001;
constexpr PictureId kPicturePointer = 5050;  // its top left corner is the hot spot

// Buttons with two looks: the released one above the pressed one.
constexpr PictureId kPictureHistoryBack = 5300;
constexpr PictureId kPictureHistoryForward = 5301;
constexpr PictureId kPictureHistoryEnlarge = 5302;
constexpr PictureId kPictureHistoryShrink = 5303;
constexpr PictureId kPictureHistoryTop = 5320;   // tiled along the panel's upper edge
constexpr PictureId kPictureHistorySide = 5321;  // tiled down its upright lines

constexpr PictureId kPictureTitle = 6101;

constexpr PictureId kPictureBarLeft = 6401;
constexpr PictureId kPictureBarTile = 6402;
constexpr PictureId kPictureBarRight = 6403;
constexpr PictureId kPictureStripLeft = 6411;  // the strips' frames are see-through in the middle
constexpr PictureId kPictureStripTile = 6412;
constexpr PictureId kPictureStripRight = 6413;
constexpr PictureId kPictureProgressBar = 6500;
constexpr PictureId kPictureProgressFrame = 6501;

constexpr PictureId kPictureFrame = 6600;  // 32 by 32; all frames are cut from it
constexpr PictureId kPictureDecrement = 6601;
constexpr PictureId kPictureDecrementPressed = 6602;
constexpr PictureId kPictureIncrement = 6603;
constexpr PictureId kPictureIncrementPressed = 6604;
constexpr PictureId kPictureClose = 6605;
constexpr PictureId kPictureClosePressed = 6606;
constexpr PictureId kPictureTogglePressed = 6607;
constexpr PictureId kPictureButton = 6608;
constexpr PictureId kPictureButtonPressed = 6609;
constexpr PictureId kPictureCaptionBar = 6610;
constexpr PictureId kPictureScrollbarTrack = 6611;
constexpr PictureId kPictureChatBackground = 6612;
constexpr PictureId kPicturePanel = 6613;

// The lobby's island at darkness 0, 100 and 200.
constexpr PictureId kPictureIslandDay = 6700;
constexpr PictureId kPictureIslandDusk = 6701;
constexpr PictureId kPictureIslandNight = 6702;

// All characters: a column for each walking frame, a row for each direction.
constexpr PictureId kPictureCharacters = 50002;

}  // namespace tolva
