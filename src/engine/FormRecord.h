#pragma once

#include <QString>
#include <vector>

namespace engine {

/// One alternative of a choice list.
struct FormOption
{
    QString value;
    QString text;
};

/// What an input of a page says about itself. All texts are the page's own and cut to a bounded length.
struct FormInput
{
    /// Names the input among those of its frame, and nothing else.
    int number = 0;
    /// "text", "tel", "email", "number", "month", "date", ..., "radio", "checkbox", "select-one", "textarea".
    QString type;
    QString name;
    QString id;
    QString autocomplete;
    /// The text of its label, or what stands beside it.
    QString label;
    QString ariaLabel;
    QString placeholder;
    /// Greatest number of characters it takes; 0 when nothing limits them.
    int maxLength = 0;
    /// Of a radio button or check box: its value attribute.
    QString value;
    /// Of a choice list.
    std::vector<FormOption> options;
};

/// All inputs of one frame that may be filled, in document order. Those that are hidden, disabled, read-only, already
/// filled or for passwords are not among them.
struct FrameForm
{
    /// The origin of the frame as the engine knows it; empty for an opaque one.
    QString origin;
    /// The frame and all frames around it came over a protected path, or from this machine.
    bool secure = false;
    std::vector<FormInput> inputs;
};

/// One input to fill.
struct FormAnswer
{
    int number = 0;
    /// Text to write; of a choice list the position of the alternative in decimal, counted from 0; of a radio button or
    /// check box "1" to check it.
    QString value;
};

/// The user's record for web forms: an ordered list of fields.
class FormRecord
{
public:
    virtual ~FormRecord() = default;

    /// Fills an empty record from a file. A missing or damaged file gives an empty or partial record, never an error.
    virtual void LoadFormData(const QString &path) = 0;
    virtual void ClearFormData() = 0;
    /// Appends one field. Equal keys and empty values are fine.
    virtual void AddFormField(const QString &key, const QString &value, bool isProtected) = 0;
    /// Writes all fields in order. Throws ControlError when that fails; the old file stays then.
    virtual void SaveFormData(const QString &path) = 0;
    /// The first field whose key equals `key`, ignoring case; an empty value when there is none.
    virtual void GetFormField(const QString &key, QString &value, bool &isProtected) const = 0;

    /// What belongs into the inputs of one frame. Inputs that nothing fits are left out. `locked` leaves protected
    /// fields out, and so does a frame that is not secure.
    virtual std::vector<FormAnswer> matchForm(const FrameForm &frame, bool locked) const = 0;
};

} // namespace engine
