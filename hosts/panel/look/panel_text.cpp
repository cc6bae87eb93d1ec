#include "panel/look/panel_text.h"

#include <array>

namespace servopanel::panel {

namespace {

struct Word {
    PanelText text;
    std::string_view key;
    const char* german;
    const char* english;
    const char* arabic;
    const char* chinese;
};

constexpr std::array words{
    Word{PanelText::Ok, "Panel.Ok", "OK", "OK", "موافق", "确定"},
    Word{PanelText::Cancel, "Panel.Cancel", "Abbruch", "Cancel", "إلغاء", "取消"},
    Word{PanelText::Clear, "Panel.Clear", "C", "C", "C", "C"},
    Word{PanelText::Lowest, "Panel.Lowest", "Min", "Min", "أدنى", "最小"},
    Word{PanelText::Highest, "Panel.Highest", "Max", "Max", "أقصى", "最大"},
    Word{PanelText::TooSmall, "Panel.TooSmall", "Zu klein: mindestens", "Too small: at least",
        "صغير جدًا: الحد الأدنى", "过小：至少为"},
    Word{PanelText::TooLarge, "Panel.TooLarge", "Zu groß: höchstens", "Too large: at most",
        "كبير جدًا: الحد الأقصى", "过大：至多为"},
    Word{PanelText::NoSign, "Panel.NoSign", "Kein Minus: mindestens", "No minus: at least",
        "بلا إشارة سالبة: الحد الأدنى", "不允许负号：至少为"},
    Word{PanelText::LimitsUnknown, "Panel.LimitsUnknown", "Grenzen nicht lesbar: keine Eingabe",
        "Limits cannot be read: no input", "تعذرت قراءة الحدود: لا يمكن الإدخال", "无法读取限值：不能输入"},
    Word{PanelText::NoNumber, "Panel.NoNumber", "Bitte eine Zahl eingeben", "Please enter a number",
        "يرجى إدخال رقم", "请输入数字"},
    Word{PanelText::Level, "Panel.Level", "Stufe", "Level", "المستوى", "等级"},
    Word{PanelText::LevelRange, "Panel.LevelRange", "Stufe: ganze Zahl bis 32767",
        "Level: whole number up to 32767", "المستوى: عدد صحيح حتى 32767", "等级：不大于 32767 的整数"},
    Word{PanelText::LimitsCrossed, "Panel.LimitsCrossed", "Min ist größer als Max", "Min is greater than Max",
        "الحد الأدنى أكبر من الأقصى", "最小值大于最大值"},
    Word{PanelText::Definition, "Panel.Definition", "Grenzen und Zugriff", "Limits and access",
        "الحدود وحق الوصول", "限值与权限"},
    Word{PanelText::On, "Panel.On", "EIN", "ON", "تشغيل", "开"},
    Word{PanelText::Off, "Panel.Off", "AUS", "OFF", "إيقاف", "关"},
    Word{PanelText::Machine, "Panel.Machine", "Maschine", "Machine", "الماكينة", "机器"},
    Word{PanelText::AccessLevel, "Panel.AccessLevel", "Zugriffsstufe", "Access level", "مستوى الوصول",
        "权限等级"},
    Word{PanelText::Errors, "Panel.Errors", "Meldungen", "Reports", "البلاغات", "消息"},
    Word{PanelText::Close, "Panel.Close", "Schließen", "Close", "إغلاق", "关闭"},
    Word{PanelText::Back, "Panel.Back", "Zurück", "Back", "رجوع", "返回"},
    Word{PanelText::Screen, "Panel.Screen", "Bild", "Screen", "الشاشة", "画面"},
    Word{PanelText::Message, "Panel.Message", "Hinweis", "Message", "تنبيه", "提示"},
    Word{PanelText::Languages, "Panel.Languages", "Sprache", "Language", "اللغة", "语言"},
    Word{PanelText::LinkGood, "Panel.LinkGood", "Verbunden", "Connected", "متصل", "已连接"},
    Word{
        PanelText::LinkPartly, "Panel.LinkPartly", "Werte fehlen", "Values missing", "قيم ناقصة", "数值缺失"},
    Word{PanelText::LinkBad, "Panel.LinkBad", "Keine Verbindung", "No connection", "لا يوجد اتصال", "无连接"},
    Word{PanelText::Written, "Panel.Written",
        "Geschrieben, Werte:", "Written, values:", "كُتبت، عدد القيم:", "已写入，数值个数："},
    Word{PanelText::NotWritten, "Panel.NotWritten", "Nicht geschrieben", "Not written", "لم تُكتب", "未写入"},
    Word{PanelText::RefusedUnreadable, "Panel.RefusedUnreadable", "nicht lesbar", "cannot be read",
        "تعذرت القراءة", "无法读取"},
    Word{PanelText::RefusedRange, "Panel.RefusedRange", "außerhalb des Wertebereichs", "out of range",
        "خارج النطاق المسموح", "超出范围"},
    Word{PanelText::RefusedType, "Panel.RefusedType", "falscher Datentyp", "wrong type of data",
        "نوع بيانات غير صحيح", "数据类型错误"},
    Word{PanelText::RefusedReadOnly, "Panel.RefusedReadOnly", "schreibgeschützt", "read-only", "للقراءة فقط",
        "只读"},
    Word{PanelText::RefusedNotTaken, "Panel.RefusedNotTaken", "nicht übernommen", "not taken over",
        "لم تُعتمد", "未采用"},
    Word{PanelText::RefusedOther, "Panel.RefusedOther", "von der Steuerung abgelehnt",
        "refused by the controller", "رفضته وحدة التحكم", "被控制器拒绝"},
    Word{PanelText::NotTold, "Panel.NotTold", "Änderung nicht gemeldet", "Change not announced",
        "لم يُبلَّغ عن التغيير", "未通知更改"},
    Word{PanelText::ClearReports, "Panel.ClearReports", "Liste leeren", "Clear list", "مسح القائمة",
        "清空列表"},
    Word{PanelText::FirstTime, "Panel.FirstTime", "Zuerst", "First", "أول مرة", "首次"},
    Word{PanelText::LastTime, "Panel.LastTime", "Zuletzt", "Last", "آخر مرة", "末次"},
    Word{PanelText::Times, "Panel.Times", "Anzahl", "Count", "العدد", "次数"},
    Word{PanelText::Procedure, "Panel.Procedure", "Prozedur", "Procedure", "الإجراء", "过程"},
    Word{PanelText::Trend, "Panel.Trend", "Verlauf", "Trend", "المنحنى", "趋势"},
    Word{PanelText::TrendShared, "Panel.TrendShared", "Eine Skala", "One scale", "مقياس واحد", "统一刻度"},
    Word{PanelText::TrendFreeze, "Panel.TrendFreeze", "Anhalten", "Freeze", "تجميد", "冻结"},
    Word{PanelText::TrendContinue, "Panel.TrendContinue", "Weiter", "Continue", "متابعة", "继续"},
    Word{PanelText::TrendAdd, "Panel.TrendAdd", "Weiteren Wert antippen", "Touch a value to add it",
        "المس قيمة لإضافتها", "点按数值即可添加"},
    Word{PanelText::TrendFull, "Panel.TrendFull", "höchstens vier Werte", "four values at most",
        "أربع قيم على الأكثر", "最多四个数值"},
};

const Word& word(PanelText text)
{
    for (const Word& each : words)
        if (each.text == text) return each;
    return words.front();
}

} // namespace

std::string_view panelTextKey(PanelText text) { return word(text).key; }

QString panelWord(PanelText text, std::string_view languageCode)
{
    const Word& found = word(text);
    const std::string_view language = languageCode.substr(0, languageCode.find_first_of("-_"));
    const char* shown = found.english;
    if (language == "de") shown = found.german;
    if (language == "ar") shown = found.arabic;
    if (language == "zh") shown = found.chinese;
    return QString::fromUtf8(shown);
}

} // namespace servopanel::panel
