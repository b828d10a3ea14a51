// RewriteBuffer: one text on its way to a number, with a cursor at the place of the next rewrite.
//
// Evaluation puts a value in the place of its operands and starts again on the whole text, which is first brought into
// normal form:
//   1. several blanks in a row become one, white space at both ends goes;
//   2. a blank between two minus signs goes;
//   3. pairs of minus signs at the start cancel, then a blank behind a minus sign at the start goes.
// Done to the letter this costs a pass over the text for each operator. But a text in normal form leaves it only where
// it is touched: around the value put in, and at its start. So the text is kept in a gap buffer, the gap at the cursor,
// and Replace restores the normal form at these two places. A line of n operators then takes time in proportion to n;
// that the outcome is the same for every text is tested against an evaluator that does it to the letter.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "engine/language.h"
#include "framework/text/text.h"

namespace sumlet {

// What is dropped from the text on both sides of a value before blanks are set there.
enum class SeamTrim { Blanks, WhiteSpace };

class RewriteBuffer {
 public:
  // Takes over `text` in normal form, with the cursor at the start.
  explicit RewriteBuffer(std::string_view text) { Assign(text); }
  RewriteBuffer(const RewriteBuffer&) = delete;
  RewriteBuffer& operator=(const RewriteBuffer&) = delete;

  // Whether the text or a value put into it had a character of these sets.
  [[nodiscard]] bool Held(CharacterSet sets) const { return (held_ & sets) != 0; }

  // The text in front of the cursor and behind it. Any other call makes these views invalid.
  [[nodiscard]] std::string_view Before() const { return {data_ + head_, gapBegin_ - head_}; }
  [[nodiscard]] std::string_view After() const { return {data_ + gapEnd_, end_ - gapEnd_}; }
  // The whole text; moves the cursor to the end.
  [[nodiscard]] std::string_view Whole();

  void Rewind();
  void Advance(std::size_t count);
  // Moves the cursor in front of the first character behind it that is in `sets`. Gives false, and moves nothing, when
  // there is none. A minus sign in the first place of the whole text is passed over: it is never an operator.
  [[nodiscard]] bool MoveTo(CharacterSet sets);

  // Puts `value`, with a blank on either side, in the place of the last `before` bytes in front of the cursor and the
  // first `after` bytes behind it, and restores the normal form. The cursor then stands behind the value. `value` must
  // not be a part of the buffer.
  void Replace(std::size_t before, std::size_t after, std::string_view value, SeamTrim trim);

  // The part of Before() that the last Replace put in, as long as it is still there.
  [[nodiscard]] std::string_view LastValue() const { return {data_ + valueBegin_, valueEnd_ - valueBegin_}; }
  // Moves the cursor, right behind a Replace, in front of the value.
  void StepBackOverValue();

  // Puts `sign` in the place of every blank. White space at both ends goes; the cursor then stands at the start.
  void ReplaceBlanks(char sign);

 private:
  void Assign(std::string_view text);
  void Reserve(std::size_t gap);
  void TrimSeam(SeamTrim trim);
  void TrimHead();
  void CancelSignsAtHead();
  void JoinEnds();
  void Insert(std::string_view value);
  void PushFront(char c);
  void DropFront(std::size_t count);
  [[nodiscard]] char At(std::size_t index) const;

  // Text of up to this length is rewritten without asking for memory. The gap is a part of it.
  static constexpr std::size_t inlineCapacity = 256;

  std::array<char, inlineCapacity> inline_;
  std::unique_ptr<char[]> heap_;
  char* data_ = inline_.data();
  std::size_t capacity_ = inlineCapacity;

  // The text is [head_, gapBegin_) and [gapEnd_, end_); the cursor is the gap.
  std::size_t head_ = 0;
  std::size_t gapBegin_ = 0;
  std::size_t gapEnd_ = 0;
  std::size_t end_ = 0;

  std::size_t valueBegin_ = 0;
  std::size_t valueEnd_ = 0;
  CharacterSet held_ = 0;
};

}  // namespace sumlet
