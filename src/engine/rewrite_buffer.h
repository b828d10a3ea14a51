// RewriteBuffer: a text that evaluation rewrites step by step, with a cursor at the place of the next rewrite.
//
// The language is defined so: each step replaces operands by their value and starts again on the whole text, after
// bringing it into normal form:
//   1. several blanks in a row become one; white space at both ends is removed;
//   2. a blank between two minus signs is removed;
//   3. pairs of minus signs at the start cancel; then a blank behind a minus sign at the start is removed.
// Implemented literally, this takes a pass over the text for each operator. But a step can break the normal form only
// around the inserted value and at the start of the text. So this class keeps the text in a gap buffer with the gap at
// the cursor, and Replace restores the normal form at these two places. A line of n operators then takes O(n) time. The
// fuzz target `rewriting` compares the results with those of a literal implementation.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "engine/language.h"
#include "framework/text/text.h"

namespace sumlet {

// Which characters Replace removes on both sides of the replaced range: " " only, or all white space.
enum class TrimMode { Blanks, WhiteSpace };

class RewriteBuffer {
 public:
  // Copies `text` in normal form. The cursor is at the start.
  explicit RewriteBuffer(std::string_view text);
  RewriteBuffer(const RewriteBuffer&) = delete;
  RewriteBuffer& operator=(const RewriteBuffer&) = delete;

  // Returns false only if the text contains no character of these sets. May return true for one that has been replaced.
  [[nodiscard]] bool MayContain(CharacterSet sets) const { return (contained_ & sets) != 0; }

  // The text in front of the cursor and behind it. Every non-const call invalidates these views.
  [[nodiscard]] std::string_view Before() const { return {data_.get() + head_, gapBegin_ - head_}; }
  [[nodiscard]] std::string_view After() const { return {data_.get() + gapEnd_, end_ - gapEnd_}; }
  // The whole text; moves the cursor to the end.
  [[nodiscard]] std::string_view Whole();

  void Rewind();
  void Advance(std::size_t count);
  // Moves the cursor in front of the next character in `sets`. Returns false without moving it if there is none. Skips
  // a minus sign at the start of the whole text, because it is never an operator.
  [[nodiscard]] bool MoveTo(CharacterSet sets);

  // Replaces the last `before` bytes in front of the cursor and the first `after` bytes behind it by `value`, with a
  // blank on either side, and restores the normal form. Then the cursor is behind the value. `value` must not be a view
  // of the buffer.
  void Replace(std::size_t before, std::size_t after, std::string_view value, TrimMode trim);

  // The value that the last Replace inserted. Empty after Rewind, StepBackOverValue or ReplaceBlanks.
  [[nodiscard]] std::string_view LastValue() const { return {data_.get() + valueBegin_, valueEnd_ - valueBegin_}; }
  // Moves the cursor in front of the value. Call only directly after Replace.
  void StepBackOverValue();

  // Replaces every blank by `sign`, after removing white space at both ends. Then the cursor is at the start.
  void ReplaceBlanks(char sign);

 private:
  void Reserve(std::size_t gap);
  void TrimAroundCursor(TrimMode trim);
  void TrimHead();
  void CancelSignsAtHead();
  void JoinWithBlank();
  void Insert(std::string_view value);
  void PushFront(char c);
  void DropFront(std::size_t count);
  [[nodiscard]] char At(std::size_t index) const;

  std::unique_ptr<char[]> data_;
  std::size_t capacity_ = 0;

  // The text is [head_, gapBegin_) and [gapEnd_, end_); the cursor is the gap.
  std::size_t head_ = 0;
  std::size_t gapBegin_ = 0;
  std::size_t gapEnd_ = 0;
  std::size_t end_ = 0;

  std::size_t valueBegin_ = 0;
  std::size_t valueEnd_ = 0;
  CharacterSet contained_ = 0;
};

}  // namespace sumlet
