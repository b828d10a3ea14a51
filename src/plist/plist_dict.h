// plistDict: a node of a property list, a dictionary or an array of values. Every value is text, held apart from a word
// for its type: "string", "integer", "real", "double", "boolean", "date", "data", "dict", "array", or any other tag
// name that a file had. Case never counts in a key.
//
// The operations that report do so through the document (SetError): they clear its error first and set it when they
// fail, so that it tells about the last operation. Nothing here tells a failure in another way, but for a Fault where
// that is said. A failed operation leaves the tree unchanged unless it says otherwise.
#pragma once

#include <string_view>

#include "framework/file/text_streams.h"
#include "framework/text/date.h"
#include "framework/text/text.h"
#include "framework/text/variant.h"
#include "plist/child_list.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace sumlet {

class Listbox;
class TextArea;
class Window;
class plist;

class plistDict {
 public:
  // An empty dictionary outside any document.
  plistDict() = default;
  plistDict(plistDict&&) = delete;
  plistDict& operator=(plistDict&&) = delete;
  ~plistDict() = default;

  // ---- The node

  [[nodiscard]] const Dictionary& values() const { return values_; }  // of every leaf key, text
  [[nodiscard]] const Dictionary& types() const { return types_; }    // of every key, leaf or not
  [[nodiscard]] const ChildList& children() const { return children_; }
  [[nodiscard]] const Dictionary& searched() const { return searched_; }  // whether a search has reported the key
  [[nodiscard]] const String& name() const;                               // the key in the node above; "root" on top
  [[nodiscard]] Int32 indexOf() const { return indexOf_; }                // the array index last given out, or -1
  [[nodiscard]] bool isArray() const { return isArray_; }                 // the keys are "0", "1", ...
  [[nodiscard]] plistDict* parent() const { return parent_; }             // nullptr on top
  [[nodiscard]] plist* rootClass() const { return rootClass_; }           // nullptr outside a document
  [[nodiscard]] bool eof() const { return eof_; }                         // the cursor has run past the last key

  // Fills the node, and the nodes below it, from the lines of a property list up to the node's end tag or the end of
  // the stream; the line of the node's own tag has been read. Keys it had are dropped, children are not. With `read`
  // off the node is left empty and `stream` may be nullptr, which is a Fault otherwise. `parent` and `document` must
  // outlive the node. See reader.cpp for what is understood.
  void Load(TextInputStream* stream, std::string_view name, bool asArray, plistDict* parent, plist* document,
            bool read);

  // The first child of this key; where there is none, a new empty dictionary. A Fault when the key holds a plain value.
  plistDict& child(std::string_view key);

  // The text of a key. `fallback` is stored first when the key is absent, here and in all other getters.
  String GetValue(std::string_view key, std::string_view fallback = {});
  // A Fault for an absent key.
  [[nodiscard]] String GetType(std::string_view key) const;
  // The child of the key Str(index), or nullptr.
  [[nodiscard]] plistDict* index(Int32 index) const;

  // Writes the lines of all keys, `indent` tabs in.
  void Write(TextOutputStream& stream, Int32 indent) const;

  // ---- Typed access: typed_access.cpp says what each stores and takes

  String GetString(std::string_view key, std::string_view fallback = {});
  // Whether the key holds a plain value; a Fault for an absent key. Reports when it does not, but does not clear.
  bool TypeOK(std::string_view key);
  Int32 GetInteger(std::string_view key, Int32 fallback = 0);
  bool GetBoolean(std::string_view key, bool fallback = true);
  Date GetDate(std::string_view key, const Date& fallback = Date());
  String GetData(std::string_view key, std::string_view fallback = {});
  void SetBoolean(std::string_view key, bool value);
  // 2 when the key is absent, 1 when it has this type, 0 with an error when it has another.
  Int32 CheckType(std::string_view key, std::string_view type);
  void SetString(std::string_view key, std::string_view text);
  void SetInteger(std::string_view key, double value);
  double GetDouble(std::string_view key, double fallback = 0);
  // Keeps one decimal place and no sign.
  void SetDouble(std::string_view key, double value);
  // Takes the place of any type, and neither reports nor clears an error. The text is base64.
  void SetData(std::string_view key, std::string_view text);
  void SetDate(std::string_view key, const Date& date);
  // At least two digits.
  [[nodiscard]] static String MakeTwo(Int32 n);

  // ---- New children and array elements

  void AddChild(std::string_view key);
  bool AddArray(std::string_view key);
  // The element's key is the number of keys, which an array read with gaps may have already; it is then replaced.
  void AppendInteger(Int32 value);
  void AppendDict();
  void AppendArray();
  void AppendBoolean(bool value);
  void AppendDouble(double value);
  void AppendString(std::string_view text);
  void AppendData(std::string_view text);
  void AppendDate(const Date& date);
  // Whether the node is an array; reports when it is not.
  bool CheckArray();

  // Removes a key, given as text, or an array element, given as a number; what it held is destroyed. Neither reports
  // nor clears for a key. A number out of range reports and is a Fault, and so is one in an array that has plain values
  // in front of the container to be removed.
  void Remove(const Variant& key);

  // ---- The cursor, and what a key is

  [[nodiscard]] Int32 count() const { return types_.Count(); }
  void MoveNext();
  void MoveFirst();
  void MoveLast();
  // The key under the cursor. Past the last it is empty, and the cursor goes back to the first with eof() set.
  String CurrentKey();
  // Keeps one decimal place and no sign; a second call for the same key finds the type "real" and reports it.
  void SetReal(std::string_view key, double value);
  double GetReal(std::string_view key, double fallback = 0);
  [[nodiscard]] bool Exists(std::string_view key) const { return types_.HasKey(String(key)); }
  [[nodiscard]] static String BracketsToCode(std::string_view text);
  [[nodiscard]] static String CodeToBrackets(std::string_view text);

  // Tells the document, if there is one. An error is shown by MsgBox when the document's `debug` is set.
  void SetError(bool failed, std::string_view message) const;

  // Adds the node's lines to the clipboard, those of its children ahead of them.
  void Dump(Int32 indent) const;

  // Six hexadecimal digits.
  void SetColor(std::string_view key, Color color);
  Color GetColor(std::string_view key, Color fallback = {});

  // ---- Controls and lists. What takes a window or a control is in a library of its own, plist/controls

  // Under `key`, a dictionary with the title and the bounds in pixels.
  void SetWindow(std::string_view key, const Window& window);
  void GetWindow(std::string_view key, Window& window);
  // The parts are not padded to two digits, so that GetColor misreads one below 16.
  void AppendColor(Color color);
  void AppendWindow(const Window& window);
  // What reads a list or an entry of several values is a Fault where a plain value stands in its place.
  // A control's key is its object name, for lists and popups with "." and the property "Index" behind it. A getter for
  // an absent key stores the control's present state first. Lists and popups get their rows added to those they have;
  // `select` selects the row that was selected when they were stored.
  void SetListbox(const Listbox& listbox);
  void SetPopup(const QComboBox& popup);
  void GetListbox(Listbox& listbox, bool select);
  void GetPopup(QComboBox& popup, bool select);
  void AppendListbox(const Listbox& listbox);
  void AppendPopup(const QComboBox& popup);
  // The elements from index `first` to `last`; each is the list's last index if it lies behind that.
  void SetList(std::string_view key, const Array<String>& list, Int32 first, Int32 last);
  // All elements; with `keepFirst` from index 1 on, behind an empty element 0.
  void GetList(std::string_view key, Array<String>& list, bool keepFirst);
  void AppendList(const Array<String>& list, Int32 first, Int32 last);
  void SetEditField(const TextArea& field);
  void GetEditField(TextArea& field);
  void GetCheckbox(QCheckBox& box);
  void SetCheckbox(const QCheckBox& box);
  void SetStaticText(const QLabel& label);
  void GetStaticText(QLabel& label);
  void SetRadio(const QRadioButton& button);
  void GetRadio(QRadioButton& button);

  // ---- Place in the tree, and restructuring

  // Such as ":root:a:b". Only for a node below the top. A key "root" on the way cuts the path there.
  [[nodiscard]] String AbsolutePath() const;
  // Puts the nodes from `node` up in front of `path`, up to the first one of the name "root".
  static void BuildPath(const plistDict* node, String& path);

  // Copies a key with all below it to `destination`, under `newKey`, or its own key where that is empty, and with
  // `remove` takes it away here, also when it could not be stored there. An array destination appends it. A copied
  // array becomes a dictionary, and a container that stands under the key there already is filled up. A Fault when what
  // is copied and what it is copied to lie one in the other, or when a key there holds a plain value where a container
  // is to go; what was copied before that stays. A key that is moved onto itself is removed.
  void Move(std::string_view key, plistDict* destination, bool remove, std::string_view newKey);
  void Move(std::string_view key, plistDict* destination) { Move(key, destination, true, {}); }
  void Copy(std::string_view key, plistDict* destination) { Move(key, destination, false, {}); }
  void Rename(std::string_view key, std::string_view newKey);

  // The text without its leading characters of a code below 32.
  [[nodiscard]] static std::string_view LStripNonPrintingChars(std::string_view text);

  void GetTextField(QLineEdit& field);
  void SetTextField(const QLineEdit& field);

 private:
  friend class ChildList;  // takes a deep tree down
  friend class plist;      // searches
  class Reader;
  class Writer;

  void Store(std::string_view key, std::string_view word, std::string_view text);
  void StoreChecked(std::string_view key, std::string_view checkedWord, std::string_view text, std::string_view word);
  void ReportMismatch(std::string_view key) const;
  // The text of a number; nothing when the key holds none, which is then reported, with the number to give instead.
  bool NumberText(std::string_view key, String& text, double& instead);
  void AppendValue(std::string_view word, std::string_view text);
  bool AppendKey(std::string_view word, String& key);
  void AppendTexts(const Array<String>& list, Int32 first, Int32 last);

  bool AddNode(std::string_view key, bool asArray);
  plistDict& NewNode(SharedText key, SharedText name, bool asArray);
  void Begin(SharedText name, bool asArray, plistDict* parent, plist* document);
  void RemoveChild(Int32 index);
  void RemoveKey(std::string_view key);
  void RemoveElement(Int32 index);
  [[nodiscard]] bool Contains(const plistDict* node) const;
  plistDict* Transfer(std::string_view key, plistDict& destination, std::string_view target);
  static void CopyKeys(plistDict& source, plistDict& destination);

  Dictionary values_;
  Dictionary types_;
  Dictionary searched_;
  ChildList children_;
  SharedText name_;
  plistDict* parent_ = nullptr;
  plist* rootClass_ = nullptr;
  Int32 indexOf_ = -1;
  Int32 currentIndex_ = 0;
  bool isArray_ = false;
  bool eof_ = false;
};

// Whether a type is that of a node, "dict" or "array" in any case.
[[nodiscard]] bool IsContainer(std::string_view type);

}  // namespace sumlet
