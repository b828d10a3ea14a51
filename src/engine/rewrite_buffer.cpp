#include "engine/rewrite_buffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sumlet {
namespace {

// Room for a few values before inserting one has to move the text.
constexpr std::size_t spareGap = 64;

bool IsDropped(char c, TrimMode trim) { return trim == TrimMode::Blanks ? c == ' ' : IsWhiteSpace(c); }

}  // namespace

RewriteBuffer::RewriteBuffer(std::string_view text) {
  text = Trimmed(text);
  capacity_ = spareGap + text.size();
  data_ = std::make_unique_for_overwrite<char[]>(capacity_);
  gapEnd_ = spareGap;
  CharacterSet contained = 0;  // a local, because a char written through `out` could alias a member
  char* out = data_.get() + gapEnd_;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ') {
      while (text[i + 1] == ' ') ++i;  // the last character is no blank
      if (out[-1] == '-' && text[i + 1] == '-') continue;
    }
    contained |= SetsOf(c);
    *out++ = c;
  }
  contained_ = contained;
  end_ = static_cast<std::size_t>(out - data_.get());
  CancelSignsAtHead();
}

std::string_view RewriteBuffer::Whole() {
  Advance(end_ - gapEnd_);
  return Before();
}

void RewriteBuffer::Rewind() {
  const std::size_t count = gapBegin_ - head_;
  gapEnd_ -= count;
  if (count > 0) std::memmove(data_.get() + gapEnd_, data_.get() + head_, count);
  head_ = gapBegin_ = valueBegin_ = valueEnd_ = 0;
}

void RewriteBuffer::Advance(std::size_t count) {
  std::memmove(data_.get() + gapBegin_, data_.get() + gapEnd_, count);
  gapBegin_ += count;
  gapEnd_ += count;
}

bool RewriteBuffer::MoveTo(CharacterSet sets) {
  const std::string_view after = After();
  const bool signFirst = head_ == gapBegin_ && !after.empty() && after.front() == '-';
  const auto isSought = [sets](char c) { return IsIn(c, sets); };
  const auto found = std::find_if(after.begin() + (signFirst ? 1 : 0), after.end(), isSought);
  if (found == after.end()) return false;
  Advance(static_cast<std::size_t>(found - after.begin()));
  return true;
}

void RewriteBuffer::Replace(std::size_t before, std::size_t after, std::string_view value, TrimMode trim) {
  gapBegin_ -= before;
  gapEnd_ += after;
  TrimAroundCursor(trim);
  TrimHead();
  if (value.empty()) {
    JoinWithBlank();
    valueBegin_ = valueEnd_ = gapBegin_;
  } else {
    Insert(value);
  }
  CancelSignsAtHead();
}

void RewriteBuffer::StepBackOverValue() {
  const std::size_t count = gapBegin_ - valueBegin_;
  gapEnd_ -= count;
  std::memmove(data_.get() + gapEnd_, data_.get() + valueBegin_, count);
  gapBegin_ = valueEnd_ = valueBegin_;
}

void RewriteBuffer::ReplaceBlanks(char sign) {
  Advance(end_ - gapEnd_);
  TrimAroundCursor(TrimMode::WhiteSpace);
  TrimHead();
  std::replace(data_.get() + head_, data_.get() + gapBegin_, ' ', sign);
  contained_ |= SetsOf(sign);
  Rewind();
}

// Makes the gap at least `gap` bytes wide. Doubling keeps the total cost of growing linear.
void RewriteBuffer::Reserve(std::size_t gap) {
  if (gapEnd_ - gapBegin_ >= gap) return;
  const std::size_t behind = end_ - gapEnd_;
  const std::size_t capacity = std::max(capacity_ * 2, gapBegin_ + gap + behind);
  auto grown = std::make_unique_for_overwrite<char[]>(capacity);
  std::memcpy(grown.get(), data_.get(), gapBegin_);
  std::memcpy(grown.get() + capacity - behind, data_.get() + gapEnd_, behind);
  data_ = std::move(grown);
  capacity_ = end_ = capacity;
  gapEnd_ = capacity - behind;
}

void RewriteBuffer::TrimAroundCursor(TrimMode trim) {
  while (gapBegin_ > head_ && IsDropped(data_[gapBegin_ - 1], trim)) --gapBegin_;
  while (gapEnd_ < end_ && IsDropped(data_[gapEnd_], trim)) ++gapEnd_;
}

// Cancelled signs can leave white space at the start. The next rewrite removes it; until then it counts when names in
// front of a parenthesis are tried.
void RewriteBuffer::TrimHead() {
  while (head_ < gapBegin_ && IsWhiteSpace(data_[head_])) ++head_;
}

// An empty value leaves one blank between the texts before and behind it.
void RewriteBuffer::JoinWithBlank() {
  if (head_ == gapBegin_ || gapEnd_ == end_) {
    TrimAroundCursor(TrimMode::WhiteSpace);
    return;
  }
  if (data_[gapBegin_ - 1] == '-' && data_[gapEnd_] == '-') return;
  Reserve(1);
  data_[--gapEnd_] = ' ';
}

void RewriteBuffer::Insert(std::string_view value) {
  Reserve(value.size() + 2);
  if (gapBegin_ > head_ && !(data_[gapBegin_ - 1] == '-' && value.front() == '-')) data_[gapBegin_++] = ' ';
  if (gapEnd_ < end_ && !(value.back() == '-' && data_[gapEnd_] == '-')) data_[--gapEnd_] = ' ';
  contained_ |= SetsOf(value.front()) | SetsOf(value.back());  // enough for signed numbers, "inf" and "nan"
  valueBegin_ = gapBegin_;
  std::memcpy(data_.get() + gapBegin_, value.data(), value.size());
  gapBegin_ += value.size();
  valueEnd_ = gapBegin_;
}

void RewriteBuffer::CancelSignsAtHead() {
  while (At(0) == '-' && At(1) == '-') DropFront(2);
  if (At(0) == '-' && At(1) == ' ') {
    DropFront(2);
    PushFront('-');
  }
  valueEnd_ = std::max(valueEnd_, head_);
  valueBegin_ = std::max(valueBegin_, head_);
}

void RewriteBuffer::DropFront(std::size_t count) {
  const std::size_t fromBefore = std::min(count, gapBegin_ - head_);
  head_ += fromBefore;
  gapEnd_ += count - fromBefore;
}

// Call only after DropFront, which makes room on one of the two sides.
void RewriteBuffer::PushFront(char c) {
  if (head_ > 0) {
    data_[--head_] = c;
  } else {
    data_[--gapEnd_] = c;
  }
}

// The character at the 0-based `index` of the whole text; NUL past its end.
char RewriteBuffer::At(std::size_t index) const {
  const std::string_view before = Before();
  if (index < before.size()) return before[index];
  const std::string_view after = After();
  return index - before.size() < after.size() ? after[index - before.size()] : '\0';
}

}  // namespace sumlet
