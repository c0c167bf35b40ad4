#pragma once

#include <cstddef>
#include <string>

#include <SDL.h>

namespace tolva {

// What a one-line editor edits: a Latin-1 text, one byte per character, and a cursor that stands before one of its
// characters or at its end.
class EditBuffer {
 public:
  // Whether an arrow key with Ctrl moves over a word, or by one character as without Ctrl.
  enum class WordMoves { Off, On };

  const char* GetText() const { return mText.c_str(); }
  std::size_t GetLength() const { return mText.size(); }
  // 0 to GetLength().
  std::size_t GetCursor() const { return mCursor; }

  // Cuts to `maxLength` characters. The cursor stays, or moves to the new end. `text` may be null or the buffer's own.
  void SetText(const char* text, std::size_t maxLength);
  // These two return false when the cursor is there already.
  bool MoveToStart() { return MoveTo(0); }
  bool MoveToEnd() { return MoveTo(mText.size()); }
  // Moves, erases or types. False when the key changes nothing; typing stops at `maxLength` characters.
  bool HandleKey(const SDL_keysym& key, std::size_t maxLength, WordMoves wordMoves);

 private:
  bool MoveTo(std::size_t position);
  bool MoveLeft(WordMoves wordMoves);
  bool MoveRight(WordMoves wordMoves);
  bool EraseBefore();
  bool EraseAt();
  bool Type(char character, std::size_t maxLength);

  std::string mText;
  std::size_t mCursor = 0;
};

}  // namespace tolva
