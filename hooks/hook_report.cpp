#include "hooks/hook_report.hpp"

#include "hooks/hook_table.hpp"
#include "platform/definition.hpp"
#include "platform/form.hpp"

namespace vantori {

namespace {

struct NSMutableString : NSString {
    static constexpr FixedString name{"NSMutableString"};
    using NSString::NSString;
    static NSMutableString empty() {
        return sendClass<NSMutableString, "string", NSMutableString>();
    }
    void append(const char* text) const { send<"appendString:">(NSString::from(text)); }
    void append(unsigned long number) const {
        Object boxed = sendClass<NSNumber, "numberWithUnsignedLong:", Object>(number);
        send<"appendString:">(boxed.send<"stringValue", NSString>());
    }
};

const char* finding(const HookRecord& record) {
    if (!record.installed) return "not installed";
    if (!record.classFound) return "class missing";
    if (!record.methodFound) return "method missing";
    return record.inherited ? "inherited" : "own";
}

void describe(const HookRow& row, NSMutableString text) {
    const HookRecord& record = *row.record;
    text.append(" -[");
    text.append(row.className);
    text.append(" ");
    text.append(row.selectorName);
    text.append("] ");
    text.append(finding(record));
    text.append(", expected ");
    text.append(row.encoding);
    text.append(", met ");
    text.append(record.encodingMet ? record.encodingMet : "nothing");
    text.append(", calls ");
    text.append(record.calls);
    text.append("\n");
}

void describe(const FeatureRecord& feature, NSMutableString text) {
    const char* form = feature.form;
    text.append("form ");
    text.append(feature.name);
    text.append(": ");
    text.append(form ? form : "none");
    if (feature.isOff) text.append(", switched off");
    text.append("\n");
}

NSString reportText(Class) { return hookReport(); }

}  // namespace

NSString hookReport() {
    NSMutableString text = NSMutableString::empty();
    unsigned long number = 0;
    for (auto rows : {welcomeHooks(), springBoardHooks(), controlCenterHooks()}) {
        for (const HookRow& row : rows) {
            text.append(++number);
            describe(row, text);
        }
    }
    for (auto forms : {otherSpringBoardForms(), otherControlCenterForms()}) {
        for (const OtherForm& form : forms) {
            text.append("other");
            describe(form.row, text);
        }
    }
    for (const FeatureRecord* feature = usedFeatures(); feature; feature = feature->next) {
        describe(*feature, text);
    }
    return text;
}

void registerHookReport() { define<VNTHookReport, Object>().classMethod<"text", &reportText>(); }

}  // namespace vantori
