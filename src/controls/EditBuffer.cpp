#include "controls/EditBuffer.h"

#include <algorithm>

#include "controls/TypedCharacter.h"
#include "foundation/Text.h"

namespace tolva {

void EditBuffer::SetText(const char* text, std::size_t maxLength) {
  mText = CutText(text, maxLength);
  mCursor = std::min(mCursor, mText.size());
}

bool EditBuffer::HandleKey(const SDL_keysym& key, std::size_t maxLength, WordMoves wordMoves) {
  const WordMoves moves = (key.mod & KMOD_CTRL) != 0 ? wordMoves : WordMoves::Off;
  switch (key.sym) {
    case SDLK_BACKSPACE:
      return EraseBefore();
    case SDLK_DELETE:
      return EraseAt();
    case SDLK_LEFT:
      return MoveLeft(moves);
    case SDLK_RIGHT:
      return MoveRight(moves);
    case SDLK_HOME:
      return MoveToStart();
    case SDLK_END:
      return MoveToEnd();
    default:
      return Type(GetTypedCharacter(key), maxLength);
  }
}

bool EditBuffer::MoveTo(std::size_t position) {
  if (mCursor == position) return false;
  mCursor = position;
  return true;
}

// To the start of the word before the cursor.
bool EditBuffer::MoveLeft(WordMoves wordMoves) {
  if (mCursor == 0) return false;
  --mCursor;
  if (wordMoves == WordMoves::Off) return true;
  while (mCursor > 0 && mText[mCursor] == ' ') --mCursor;
  while (mCursor > 0 && mText[mCursor - 1] != ' ') --mCursor;
  return true;
}

// To the start of the word after the cursor's.
bool EditBuffer::MoveRight(WordMoves wordMoves) {
  const std::size_t length = mText.size();
  if (mCursor >= length) return false;
  ++mCursor;
  if (wordMoves == WordMoves::Off) return true;
  mCursor = std::min(mCursor + 1, length);
  while (mCursor < length && mText[mCursor] != ' ') ++mCursor;
  while (mCursor < length && mText[mCursor] == ' ') ++mCursor;
  return true;
}

bool EditBuffer::EraseBefore() {
  if (mCursor == 0) return false;
  --mCursor;
  return EraseAt();
}

bool EditBuffer::EraseAt() {
  if (mCursor >= mText.size()) return false;
  mText.erase(mCursor, 1);
  return true;
}

bool EditBuffer::Type(char character, std::size_t maxLength) {
  if (character == '\0' || mText.size() >= maxLength) return false;
  mText.insert(mCursor++, 1, character);
  return true;
}

}  // namespace tolva
