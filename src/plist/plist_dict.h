// plistDict: a node of a property list, a dictionary or an array of values. Every value is text, stored with the name
// of its type: "string", "integer", "real", "double", "boolean", "date", "data", "dict", "array", or any other tag name
// from a file. Keys are compared without regard to case.
//
// Operations that report errors do so through the document (SetError): they clear its error first and set it when they
// fail, so that it describes the last operation. Some throw a Fault, where their comment says so. A failed operation
// leaves the tree unchanged unless its comment says otherwise.
#pragma once

#include <string_view>

#include "framework/file/text_streams.h"
#include "framework/text/array.h"
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
  [[nodiscard]] const Dictionary& types() const { return types_; }    // of every key, leaf or container
  [[nodiscard]] const ChildList& children() const { return children_; }
  [[nodiscard]] const Dictionary& searched() const { return searched_; }  // whether a search has reported the key
  [[nodiscard]] const String& name() const;                      // the key in the parent node; "root" at the top
  [[nodiscard]] Int32 indexOf() const { return indexOf_; }       // the last array index assigned, or -1
  [[nodiscard]] bool isArray() const { return isArray_; }        // the keys are "0", "1", ...
  [[nodiscard]] plistDict* parent() const { return parent_; }    // nullptr at the top
  [[nodiscard]] plist* rootClass() const { return rootClass_; }  // nullptr outside a document
  [[nodiscard]] bool eof() const { return eof_; }                // the cursor has moved past the last key

  // Fills the node, and the nodes below it, from the lines of a property list up to the node's end tag or the end of
  // the stream. The caller has read the line with the node's own tag. First clears the node's values and types; its
  // children stay. If `read` is false, does nothing more, and `stream` may be nullptr, which throws a Fault otherwise.
  // `parent` and `document` must outlive the node. reader.cpp describes the layout.
  void Load(TextInputStream* stream, std::string_view name, bool asArray, plistDict* parent, plist* document,
            bool read);

  // The first child of this key, or a new empty dictionary. Throws a Fault when the key holds a plain value.
  plistDict& child(std::string_view key);

  // The text of a key. If the key is absent, first stores `fallback` there. So does every getter that has a
  // `fallback`.
  String GetValue(std::string_view key, std::string_view fallback = {});
  // Throws a Fault for an absent key.
  [[nodiscard]] String GetType(std::string_view key) const;
  // The child of the key Str(index), or nullptr.
  [[nodiscard]] plistDict* index(Int32 index) const;

  // Writes the lines of all keys, indented by `indent` tabs.
  void Write(TextOutputStream& stream, Int32 indent) const;

  // ---- Typed access; typed_access.cpp describes what each type stores and reads

  String GetString(std::string_view key, std::string_view fallback = {});
  // Whether the key holds a plain value. Reports an error if not, but does not clear an earlier one. Throws a Fault for
  // an absent key.
  bool TypeOK(std::string_view key);
  Int32 GetInteger(std::string_view key, Int32 fallback = 0);
  bool GetBoolean(std::string_view key, bool fallback = true);
  Date GetDate(std::string_view key, const Date& fallback = Date());
  String GetData(std::string_view key, std::string_view fallback = {});
  void SetBoolean(std::string_view key, bool value);
  // Returns 2 when the key is absent, 1 when it has this type, 0 and an error when it has another.
  Int32 CheckType(std::string_view key, std::string_view type);
  void SetString(std::string_view key, std::string_view text);
  void SetInteger(std::string_view key, double value);
  double GetDouble(std::string_view key, double fallback = 0);
  // Stores one decimal place, without the sign.
  void SetDouble(std::string_view key, double value);
  // Replaces a value of any type. Neither reports nor clears an error. The text is base64.
  void SetData(std::string_view key, std::string_view text);
  void SetDate(std::string_view key, const Date& date);
  // `n` with at least two digits.
  [[nodiscard]] static String MakeTwo(Int32 n);

  // ---- New children and array elements

  void AddChild(std::string_view key);
  bool AddArray(std::string_view key);
  // The key of the new element is the number of keys. Replaces an element with that key, which an array read with gaps
  // may have.
  void AppendInteger(Int32 value);
  void AppendDict();
  void AppendArray();
  void AppendBoolean(bool value);
  void AppendDouble(double value);
  void AppendString(std::string_view text);
  void AppendData(std::string_view text);
  void AppendDate(const Date& date);
  // Whether the node is an array; reports an error if not.
  bool CheckArray();

  // Removes a key, given as text, or an array element, given as a number, and destroys its value. For a key, neither
  // reports nor clears an error. Reports an error and throws a Fault if a number is out of range, and also for a
  // container in an array that has plain values before it.
  void Remove(const Variant& key);

  // ---- The cursor, look-up, and helpers

  [[nodiscard]] Int32 count() const { return types_.Count(); }
  void MoveNext();
  void MoveFirst();
  void MoveLast();
  // The key at the cursor. Past the last key returns an empty text, sets eof() and moves the cursor to the first key.
  String CurrentKey();
  // Stores one decimal place, without the sign. Stores the type "real" but replaces only a "double", so a second
  // call for the same key reports an error.
  void SetReal(std::string_view key, double value);
  double GetReal(std::string_view key, double fallback = 0);
  [[nodiscard]] bool Exists(std::string_view key) const { return types_.HasKey(String(key)); }
  // Escapes "<" and ">" as "&lt;" and "&gt;", and the reverse.
  [[nodiscard]] static String BracketsToCode(std::string_view text);
  [[nodiscard]] static String CodeToBrackets(std::string_view text);

  // Sets the document's error, if there is a document. Shows it by MsgBox when the document's `debug` is set.
  void SetError(bool failed, std::string_view message) const;

  // Appends the lines of the children and then the node's own to the clipboard.
  void Dump(Int32 indent) const;

  // Stored as six hexadecimal digits.
  void SetColor(std::string_view key, Color color);
  Color GetColor(std::string_view key, Color fallback = {});

  // ---- Controls and lists. The functions for windows and controls are in a library of their own, plist/controls

  // Stores a dictionary with the title and the bounds, in pixels.
  void SetWindow(std::string_view key, const Window& window);
  void GetWindow(std::string_view key, Window& window);
  // Does not pad the components to two digits, so GetColor misreads those below 16.
  void AppendColor(Color color);
  void AppendWindow(const Window& window);
  // A control's key is its object name, followed for lists and popups by "." and the property "Index". A getter for an
  // absent key first stores the control's present state. Getters append rows to those that a list or popup has;
  // `select` selects the row that was selected when it was stored. A getter that expects a list or several values
  // throws a Fault when the key holds a plain value.
  void SetListbox(const Listbox& listbox);
  void SetPopup(const QComboBox& popup);
  void GetListbox(Listbox& listbox, bool select);
  void GetPopup(QComboBox& popup, bool select);
  void AppendListbox(const Listbox& listbox);
  void AppendPopup(const QComboBox& popup);
  // Stores the elements from index `first` to `last`, each limited to the list's last index.
  void SetList(std::string_view key, const Array<String>& list, Int32 first, Int32 last);
  // Replaces `list` by all elements. With `keepFirst`, inserts an empty element 0 before them.
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

  // A path such as ":root:a:b", for a node below the top. Starts at the nearest ancestor named "root".
  [[nodiscard]] String AbsolutePath() const;
  // Prepends the names of `node` and its ancestors to `path`, up to and including the nearest one named "root".
  static void BuildPath(const plistDict* node, String& path);

  // Copies a key, with everything below it, to `destination` under `newKey`, or under its own key if `newKey` is empty.
  // With `remove`, then removes it here, even when the destination could not store it. So moving a key onto itself
  // removes it. An array destination appends the value. A copied array becomes a dictionary. The copy of a container
  // adds to a container that the destination has under that key. Throws a Fault when source and destination contain one
  // another, or when a container would replace a plain value; keys copied before that stay.
  void Move(std::string_view key, plistDict* destination, bool remove, std::string_view newKey);
  void Move(std::string_view key, plistDict* destination) { Move(key, destination, true, {}); }
  void Copy(std::string_view key, plistDict* destination) { Move(key, destination, false, {}); }
  void Rename(std::string_view key, std::string_view newKey);

  // `text` without its leading characters below code 32.
  [[nodiscard]] static std::string_view LStripNonPrintingChars(std::string_view text);

  void GetTextField(QLineEdit& field);
  void SetTextField(const QLineEdit& field);

 private:
  friend class ChildList;  // destroys a deep tree
  friend class plist;      // searches
  class Reader;
  class Writer;

  void Store(std::string_view key, std::string_view type, std::string_view text);
  void StoreChecked(std::string_view key, std::string_view expectedType, std::string_view text, std::string_view type);
  void ReportMismatch(std::string_view key) const;
  // Sets `text` to the text of a number. If the key holds no number, returns false, reports an error and sets
  // `errorValue` to what the getter returns.
  bool NumberText(std::string_view key, String& text, double& errorValue);
  void AppendValue(std::string_view type, std::string_view text);
  bool AppendKey(std::string_view type, String& key);
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

// Whether `type` is "dict" or "array", in any case.
[[nodiscard]] bool IsContainer(std::string_view type);

}  // namespace sumlet
