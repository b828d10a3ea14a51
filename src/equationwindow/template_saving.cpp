// The equation as a template: the command asks for a name, and the text of the moment of saving goes with it.
#include "equationwindow/win_sumlet.h"
#include "templates/templates_manager.h"

namespace sumlet {

bool winSumlet::_FileSaveAsTemplate_Action() {
  TemplateSaver_.Text = FromTemplate.empty() ? "Untitled Template" : FromTemplate;
  TemplateSaver_.Prompt = "Provide a name for the Template:";
  TemplateSaver_.ShowWithin(*this);
  return true;
}

// Copies, because adding may ask a question, and the window may be closed while that stands.
void winSumlet::TemplateSaver_Saved(const NameProviderDialog& sender) {
  const String name = sender.Text;
  TemplatesManager::Add(name, textInput().Text());
}

}  // namespace sumlet
