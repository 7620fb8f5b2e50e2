#include "MetafileFields.h"

#include <algorithm>

namespace metafile {

MetafileFields::MetafileFields(metafile::Page page, bool lowerCase)
{
    for (const metafile::Record& record : metafile::Records(page)) {
        const std::optional<MetafileText> text = textOf(record);
        if (!text || text->fields.emrtext.nChars == 0) {
            continue;
        }
        const unsigned int start = m_text.length();
        appendCharacters(record, *text, m_text);
        const std::string_view characters(m_text.text() + start, m_text.length() - start);
        const std::size_t blanks = std::min(characters.find_first_not_of(' '), characters.size());
        m_fields.add({record.position, text->fields.emrtext.ptlReference, text->fields.rclBounds, start,
                      text->fields.emrtext.nChars, static_cast<unsigned int>(blanks)});
        m_order.add(text->fields.emrtext.ptlReference);
    }
    if (lowerCase) {
        m_text.toLower();
    }
}

// Every field of blanks on the way learns the answer, so that none is passed over twice.
MetafileFields::Step MetafileFields::stepOverBlanks(unsigned int field)
{
    if (m_steps.size() == 0) {
        m_steps.reSize(m_fields.size());
        for (unsigned int i = 0; i < m_fields.size(); ++i) {
            m_steps.add({None, None});
        }
    }
    Vector<unsigned int, 10> passed;
    Step step = m_steps[field];
    for (unsigned int at = field; step.before == None; step = m_steps[at]) {
        passed.add(at);
        m_steps[at] = {at, None}; // the answer for whoever comes around in a circle
        const unsigned int following = next(at);
        if (following == None || !isBlank(following)) {
            step = {at, following};
            break;
        }
        at = following;
    }
    for (unsigned int i = 0; i < passed.size(); ++i) {
        m_steps[passed[i]] = step;
    }
    return step;
}

} // namespace metafile
