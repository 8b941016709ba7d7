#pragma once
// Names of the dynamic properties the toolkit puts on its widgets, so that
// the host, the scripted user and the tests find controls and read what a
// window is without knowing the classes behind it.
namespace ulo::prop {

/// A control's id (unsigned): what code and scripts find controls by.
inline constexpr const char* kCtrlId = "veldCtrlId";
/// A control's position in its template (int).
inline constexpr const char* kCtrlIndex = "veldCtrlIndex";
/// A dialog's template id as constructed (unsigned), the base id N of its
/// template (unsigned) and the layout it was built in (0..3).
inline constexpr const char* kTemplateId = "veldTemplateId";
inline constexpr const char* kBaseId = "veldBaseId";
inline constexpr const char* kLayout = "veldLayout";
/// The ids of the controls that act as a dialog's OK and Cancel (unsigned).
inline constexpr const char* kOkId = "veldOkId";
inline constexpr const char* kCancelId = "veldCancelId";
/// A message box's caption, text (QString) and flags (unsigned).
inline constexpr const char* kCaption = "veldCaption";
inline constexpr const char* kText = "veldText";
inline constexpr const char* kFlags = "veldFlags";
/// Set on the toolkit's open-file dialog.
inline constexpr const char* kFileDialog = "veldFileDialog";

}  // namespace ulo::prop
