// The document: reading and saving its file.
#include <utility>

#include "framework/file/temporary.h"
#include "plist/conversion.h"
#include "plist/plist.h"

namespace sumlet {
namespace {

// A tree takes up to fifty times the bytes of its file.
constexpr std::size_t largestDocument = std::size_t{64} << 20;

constexpr std::string_view firstKeyLine = "<dict>";

// Nothing to read where the file cannot be had.
TextInputStream OpenDocument(const FolderItem& file) {
  std::optional<String> content = file.ReadBinaryFile();
  if (!content || content->size() > largestDocument) content = String();
  return TextInputStream(std::move(*content));
}

}  // namespace

plist::plist(const FolderItem& file, const std::optional<FolderItem>& fallback) : savePath(file), headers{""} {
  Load(file, fallback);
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
    LoadNew();
    return;
  }
  TextInputStream stream = OpenDocument(source);
  String line(stream.ReadLine());
  if (SameText(Left(line, 6), "bplist")) {
    isBinary = true;
    org = source;
    stream = OpenConverted(source);
  } else {
    stream.Rewind();
  }
  ReadFrom(stream, std::move(line));
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

// `line` is the first line of the source, which comes once more from a stream that was not converted.
void plist::ReadFrom(TextInputStream& stream, String line) {
  while (!stream.AtEnd() && !SameText(line, firstKeyLine)) {
    line = stream.ReadLine();
    headers.Append(line);
  }
  const bool hasKeys = SameText(line, firstKeyLine);
  error = !hasKeys;
  errorMessage = hasKeys ? "" : "Not a plist file";
  if (hasKeys) root_->Load(&stream, "root", false, nullptr, this, true);
}

// A copy is converted, so that nothing happens to the file itself.
TextInputStream plist::OpenConverted(const FolderItem& source) {
  const std::optional<FolderItem> copy = GetTemporaryFolderItem();
  if (!copy) return TextInputStream({});
  savePath = *copy;
  if (source.CopyFileTo(*copy)) ConvertPropertyList(*copy, PropertyListForm::Xml);
  TextInputStream stream = OpenDocument(*copy);
  DeleteTemporary(*copy);
  return stream;
}

void plist::Cleanup() {
  if (isBinary) DeleteTemporary(savePath);
}

void plist::Save(bool cleanup) { SaveAs(true, cleanup); }

void plist::SaveAsInvisible(const FolderItem& /*file*/, bool cleanup) { SaveAs(false, cleanup); }

// The whole text first, so that a file that cannot take it stays as it is.
void plist::SaveAs(bool visible, bool cleanup) {
  TextOutputStream stream;
  WriteTo(stream);
  if (isBinary) (void)RemakeTemporaryFolder(savePath);  // writing fails where that fails
  if (!stream.Overflowed() && savePath.WriteBinaryFile(stream.Content())) {
    if (!visible) savePath.SetVisible(false);
  } else {
    error = true;
    errorMessage = "Could not open file for saving";
  }
  if (isBinary) SaveBinary(visible);
  if (cleanup) Cleanup();
}

void plist::SaveBinary(bool visible) {
  ConvertPropertyList(savePath, PropertyListForm::Binary);
  org->Delete();
  savePath.CopyFileTo(*org);
  if (!visible) org->SetVisible(false);
}

}  // namespace sumlet
