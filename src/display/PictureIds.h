#pragma once

#include <cstdint>

namespace tolva {

// The entries of the archive "Graphics" that the screens use, by meaning. Ground, volu and character pictures bear ids
// that the server sends and have no names here.
using PictureId = std::uint32_t;

constexpr PictureId kNoPicture = 0;

constexpr PictureId kPictureWindowIcon = 5001;
constexpr PictureId kPicturePointer = 5050;  // its top left corner is the point it shows

constexpr PictureId kPictureTitle = 6101;

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

}  // namespace tolva
