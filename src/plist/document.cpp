// The document: loads and saves its file.
#include <chrono>
#include <memory>
#include <utility>

#include "framework/file/program.h"
#include "framework/file/temporary.h"
#include "plist/plist.h"

namespace sumlet {
namespace {

// A crafted file can expand to a tree of a hundred times its size.
constexpr std::size_t largestDocument = std::size_t{8} << 20;

constexpr std::string_view firstKeyLine = "<dict>";

std::optional<TextInputStream> OpenDocument(const FolderItem& file) {
  std::optional<String> content = file.ReadBinaryFile();
  if (!content || content->size() > largestDocument) return {};
  return TextInputStream(std::move(*content));
}

enum class Form { Xml, Binary };

// Converts the property list in `file` in place, with plutil or, where that is missing, plistutil. Takes at most ten
// seconds. Does not report success, because the exit status of these tools is unreliable.
void Convert(const FolderItem& file, Form form) {
  constexpr std::chrono::seconds patience(10);
  const bool toXml = form == Form::Xml;
  const String path = file.AbsolutePath();
  if (RunProgram({"plutil", "-convert", toXml ? "xml1" : "binary1", path}, patience) != ProgramEnd::NotFound) return;
  RunProgram({"plistutil", "-i", path, "-o", path, "-f", toXml ? "xml" : "bin"}, patience);
}

// Deletes a temporary file at the end of the block.
class TemporaryGuard {
 public:
  explicit TemporaryGuard(const FolderItem& item) : item_(item) {}
  TemporaryGuard(const TemporaryGuard&) = delete;
  TemporaryGuard& operator=(const TemporaryGuard&) = delete;
  ~TemporaryGuard() { DeleteTemporary(item_); }

 private:
  const FolderItem& item_;
};

}  // namespace

plist::plist(const FolderItem& file, const std::optional<FolderItem>& fallback) : savePath(file), headers{""} {
  Load(file, fallback);
}

plist::~plist() {
  if (copy_) DeleteTemporary(*copy_);
}

void plist::Load(const FolderItem& file, const std::optional<FolderItem>& fallback) {
  root_ = std::make_unique<plistDict>();
  foundDict = nullptr;
  headers.Redim(0);
  isBinary = false;
  savePath = file;
  const FolderItem& source = !file.Exists() && fallback ? *fallback : file;
  if (!source.Exists()) {
    error = true;
    errorMessage = source.AbsolutePath() + " does not exist";
    isRead_ = true;
    LoadNew();
    return;
  }
  std::optional<TextInputStream> stream = OpenDocument(source);
  String line;
  if (stream) line = stream->ReadLine();
  if (stream && SameText(Left(line, 6), "bplist")) {
    stream = OpenConverted(source);
  } else if (stream) {
    stream->Rewind();
  }
  isRead_ = stream.has_value();
  TextInputStream nothing({});
  ReadFrom(isRead_ ? *stream : nothing, std::move(line));
}

void plist::LoadNew() {
  for (const char* line : {R"(<?xml version="1.0" encoding="UTF-8"?>)",
                           R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                           R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)",
                           R"(<plist version="1.0">)", "<dict>"}) {
    headers.Append(line);
  }
  root_->Load(nullptr, "root", false, nullptr, this, false);
}

// `line` is the first line of the source. A stream that was not converted yields it again.
void plist::ReadFrom(TextInputStream& stream, String line) {
  while (!stream.AtEnd() && !SameText(line, firstKeyLine)) {
    line = stream.ReadLine();
    headers.Append(line);
  }
  const bool hasKeys = isRead_ && SameText(line, firstKeyLine);
  error = !hasKeys;
  errorMessage = hasKeys ? "" : "Not a plist file";
  if (hasKeys) root_->Load(&stream, "root", false, nullptr, this, true);
}

// Converts a copy, so that the file itself stays unchanged.
std::optional<TextInputStream> plist::OpenConverted(const FolderItem& source) {
  const std::optional<FolderItem> copy = GetTemporaryFolderItem();
  if (!copy) return {};
  const TemporaryGuard guard(*copy);
  if (!source.CopyFileTo(*copy)) return {};
  isBinary = true;
  org = source;
  savePath = *copy;
  if (copy_) DeleteTemporary(*copy_);  // from an earlier Load
  copy_ = copy;
  Convert(*copy, Form::Xml);
  return OpenDocument(*copy);
}

void plist::Cleanup() {
  if (!isBinary) return;
  if (copy_ && copy_->Path() == savePath.Path()) {
    DeleteTemporary(savePath);
  } else {
    savePath.Delete();
  }
}

void plist::Save(bool cleanup) { SaveAs(true, cleanup); }

void plist::SaveAsInvisible(const FolderItem& /*file*/, bool cleanup) { SaveAs(false, cleanup); }

void plist::SaveAs(bool visible, bool cleanup) {
  error = !isRead_ || !WriteFile();
  errorMessage = error ? "Could not open file for saving" : "";
  if (!isRead_) return;
  if (!error && !visible) savePath.SetVisible(false);
  if (isBinary && org) SaveBinary(visible);
  if (cleanup) Cleanup();
}

// Composes the whole text before opening the file, so that a failure leaves the file unchanged.
bool plist::WriteFile() const {
  TextOutputStream stream;
  WriteTo(stream);
  const bool isCopy = isBinary && copy_ && copy_->Path() == savePath.Path();
  if (stream.Overflowed() || (isCopy && !RemakeTemporaryFolder(savePath))) return false;
  return savePath.WriteBinaryFile(stream.Content());
}

void plist::SaveBinary(bool visible) {
  Convert(savePath, Form::Binary);
  org->Delete();
  savePath.CopyFileTo(*org);
  if (!visible) org->SetVisible(false);
}

}  // namespace sumlet
