#include "machine/panel_words.h"

#include <array>

namespace servopanel::machine {

namespace {

constexpr std::array words{
    PanelWord{PanelText::Ok, "Panel.Ok", "OK", "OK", "موافق", "确定"},
    PanelWord{PanelText::Cancel, "Panel.Cancel", "Abbruch", "Cancel", "إلغاء", "取消"},
    PanelWord{PanelText::Clear, "Panel.Clear", "C", "C", "C", "C"},
    PanelWord{PanelText::Lowest, "Panel.Lowest", "Min", "Min", "أدنى", "最小"},
    PanelWord{PanelText::Highest, "Panel.Highest", "Max", "Max", "أقصى", "最大"},
    PanelWord{PanelText::TooSmall, "Panel.TooSmall", "Zu klein: mindestens", "Too small: at least",
        "صغير جدًا: الحد الأدنى", "过小：至少为"},
    PanelWord{PanelText::TooLarge, "Panel.TooLarge", "Zu groß: höchstens", "Too large: at most",
        "كبير جدًا: الحد الأقصى", "过大：至多为"},
    PanelWord{PanelText::NoSign, "Panel.NoSign", "Kein Minus: mindestens", "No minus: at least",
        "بلا إشارة سالبة: الحد الأدنى", "不允许负号：至少为"},
    PanelWord{PanelText::NoFraction, "Panel.NoFraction", "Nur ganze Zahlen", "Whole numbers only",
        "أعداد صحيحة فقط", "只能输入整数"},
    PanelWord{PanelText::TooLong, "Panel.TooLong", "Zu lang, Zeichen höchstens:",
        "Too long, characters at most:", "طويل جدًا، أقصى عدد للأحرف:", "过长，最多字符数："},
    PanelWord{PanelText::LimitsUnknown, "Panel.LimitsUnknown", "Grenzen nicht lesbar: keine Eingabe",
        "Limits cannot be read: no input", "تعذرت قراءة الحدود: لا يمكن الإدخال", "无法读取限值：不能输入"},
    PanelWord{PanelText::OldValue, "Panel.OldValue", "Letzter bekannter Wert", "Last known value",
        "آخر قيمة معروفة", "最后已知值"},
    PanelWord{PanelText::NoNumber, "Panel.NoNumber", "Bitte eine Zahl eingeben", "Please enter a number",
        "يرجى إدخال رقم", "请输入数字"},
    PanelWord{PanelText::Level, "Panel.Level", "Stufe", "Level", "المستوى", "等级"},
    PanelWord{PanelText::LevelRange, "Panel.LevelRange", "Stufe: ganze Zahl bis 32767",
        "Level: whole number up to 32767", "المستوى: عدد صحيح حتى 32767", "等级：不大于 32767 的整数"},
    PanelWord{PanelText::LimitsCrossed, "Panel.LimitsCrossed", "Min ist größer als Max",
        "Min is greater than Max", "الحد الأدنى أكبر من الأقصى", "最小值大于最大值"},
    PanelWord{PanelText::Definition, "Panel.Definition", "Grenzen und Zugriff", "Limits and access",
        "الحدود وحق الوصول", "限值与权限"},
    PanelWord{PanelText::DefinitionMode, "Panel.DefinitionMode", "Grenzen ändern", "Changing limits",
        "تعديل الحدود", "修改限值"},
    PanelWord{PanelText::On, "Panel.On", "EIN", "ON", "تشغيل", "开"},
    PanelWord{PanelText::Off, "Panel.Off", "AUS", "OFF", "إيقاف", "关"},
    PanelWord{PanelText::Machine, "Panel.Machine", "Maschine", "Machine", "الماكينة", "机器"},
    PanelWord{PanelText::AccessLevel, "Panel.AccessLevel", "Zugriffsstufe", "Access level", "مستوى الوصول",
        "权限等级"},
    PanelWord{PanelText::Errors, "Panel.Errors", "Meldungen", "Reports", "البلاغات", "消息"},
    PanelWord{PanelText::Close, "Panel.Close", "Schließen", "Close", "إغلاق", "关闭"},
    PanelWord{PanelText::Back, "Panel.Back", "Zurück", "Back", "رجوع", "返回"},
    PanelWord{PanelText::Screen, "Panel.Screen", "Bild", "Screen", "الشاشة", "画面"},
    PanelWord{PanelText::Message, "Panel.Message", "Hinweis", "Message", "تنبيه", "提示"},
    PanelWord{PanelText::Languages, "Panel.Languages", "Sprache", "Language", "اللغة", "语言"},
    PanelWord{PanelText::LinkGood, "Panel.LinkGood", "Verbunden", "Connected", "متصل", "已连接"},
    PanelWord{
        PanelText::LinkPartly, "Panel.LinkPartly", "Werte fehlen", "Values missing", "قيم ناقصة", "数值缺失"},
    PanelWord{
        PanelText::LinkBad, "Panel.LinkBad", "Keine Verbindung", "No connection", "لا يوجد اتصال", "无连接"},
    PanelWord{PanelText::Writing, "Panel.Writing", "Wird geschrieben", "Writing", "جارٍ الكتابة", "正在写入"},
    PanelWord{PanelText::Written, "Panel.Written",
        "Geschrieben, Werte:", "Written, values:", "كُتبت، عدد القيم:", "已写入，数值个数："},
    PanelWord{
        PanelText::NotWritten, "Panel.NotWritten", "Nicht geschrieben", "Not written", "لم تُكتب", "未写入"},
    PanelWord{PanelText::PartlyWritten, "Panel.PartlyWritten", "Nur zum Teil geschrieben",
        "Only partly written", "كُتب جزء منها فقط", "仅部分写入"},
    PanelWord{PanelText::RefusedUnreadable, "Panel.RefusedUnreadable", "nicht lesbar", "cannot be read",
        "تعذرت القراءة", "无法读取"},
    PanelWord{PanelText::RefusedRange, "Panel.RefusedRange", "außerhalb des Wertebereichs", "out of range",
        "خارج النطاق المسموح", "超出范围"},
    PanelWord{PanelText::RefusedType, "Panel.RefusedType", "falscher Datentyp", "wrong type of data",
        "نوع بيانات غير صحيح", "数据类型错误"},
    PanelWord{PanelText::RefusedReadOnly, "Panel.RefusedReadOnly", "schreibgeschützt", "read-only",
        "للقراءة فقط", "只读"},
    PanelWord{PanelText::RefusedNotTaken, "Panel.RefusedNotTaken", "nicht übernommen", "not taken over",
        "لم تُعتمد", "未采用"},
    PanelWord{PanelText::RefusedOther, "Panel.RefusedOther", "von der Steuerung abgelehnt",
        "refused by the controller", "رفضته وحدة التحكم", "被控制器拒绝"},
    PanelWord{PanelText::Overwritten, "Panel.Overwritten", "neuerer Wert überschrieben",
        "newer value overwritten", "استُبدلت قيمة أحدث", "覆盖了较新的值"},
    PanelWord{PanelText::RefusedLevel, "Panel.RefusedLevel", "Zugriffsstufe zu niedrig",
        "access level too low", "مستوى الوصول منخفض جدًا", "权限等级过低"},
    PanelWord{PanelText::RefusedChanged, "Panel.RefusedChanged", "inzwischen an der Maschine geändert",
        "changed at the machine meanwhile", "تغيّرت في الماكينة أثناء ذلك", "期间已在机器上更改"},
    PanelWord{PanelText::RefusedTooLate, "Panel.RefusedTooLate", "zu spät angekommen", "arrived too late",
        "وصلت متأخرة", "到达过晚"},
    PanelWord{PanelText::RefusedBusy, "Panel.RefusedBusy", "Steuerung ist beschäftigt", "controller is busy",
        "وحدة التحكم مشغولة", "控制器忙"},
    PanelWord{PanelText::RefusedRestarted, "Panel.RefusedRestarted", "Steuerung wurde neu gestartet",
        "controller has restarted", "أُعيد تشغيل وحدة التحكم", "控制器已重启"},
    PanelWord{PanelText::RefusedDiffers, "Panel.RefusedDiffers", "Maschine hat einen anderen Wert übernommen",
        "machine took over another value", "اعتمدت الماكينة قيمة أخرى", "机器采用了其他值"},
    PanelWord{PanelText::RefusedAbsent, "Panel.RefusedAbsent", "Antrieb antwortet nicht",
        "drive does not answer", "المحرك لا يستجيب", "驱动器无应答"},
    PanelWord{PanelText::RefusedOld, "Panel.RefusedOld", "Wert ist veraltet", "value is out of date",
        "القيمة قديمة", "数值已过时"},
    PanelWord{PanelText::NotSent, "Panel.NotSent", "nicht gesendet", "not sent", "لم تُرسَل", "未发送"},
    PanelWord{PanelText::NoAnswer, "Panel.NoAnswer", "keine Antwort", "no answer", "لا يوجد رد", "无应答"},
    PanelWord{PanelText::NoAnswerButWritten, "Panel.NoAnswerButWritten",
        "keine Antwort, Maschine hat aber den neuen Wert", "no answer, but the machine has the new value",
        "لا يوجد رد، لكن القيمة الجديدة في الماكينة", "无应答，但机器已有新值"},
    PanelWord{PanelText::NoAnswerNotWritten, "Panel.NoAnswerNotWritten",
        "keine Antwort, Maschine hat den neuen Wert nicht",
        "no answer, the machine does not have the new value", "لا يوجد رد، والقيمة الجديدة ليست في الماكينة",
        "无应答，机器没有新值"},
    PanelWord{PanelText::NotSure, "Panel.NotSure", "Unklar, ob geschrieben", "Unclear whether written",
        "غير مؤكد هل كُتبت", "不确定是否已写入"},
    PanelWord{PanelText::NotEditable, "Panel.NotEditable", "Nicht änderbar", "Cannot be changed",
        "لا يمكن التغيير", "无法更改"},
    PanelWord{PanelText::NotTold, "Panel.NotTold", "Änderung nicht gemeldet", "Change not announced",
        "لم يُبلَّغ عن التغيير", "未通知更改"},
    PanelWord{PanelText::ClearReports, "Panel.ClearReports", "Liste leeren", "Clear list", "مسح القائمة",
        "清空列表"},
    PanelWord{PanelText::FirstTime, "Panel.FirstTime", "Zuerst", "First", "أول مرة", "首次"},
    PanelWord{PanelText::LastTime, "Panel.LastTime", "Zuletzt", "Last", "آخر مرة", "末次"},
    PanelWord{PanelText::Times, "Panel.Times", "Anzahl", "Count", "العدد", "次数"},
    PanelWord{PanelText::Procedure, "Panel.Procedure", "Prozedur", "Procedure", "الإجراء", "过程"},
    PanelWord{PanelText::Trend, "Panel.Trend", "Verlauf", "Trend", "المنحنى", "趋势"},
    PanelWord{
        PanelText::TrendShared, "Panel.TrendShared", "Eine Skala", "One scale", "مقياس واحد", "统一刻度"},
    PanelWord{PanelText::TrendFreeze, "Panel.TrendFreeze", "Anhalten", "Freeze", "تجميد", "冻结"},
    PanelWord{PanelText::TrendContinue, "Panel.TrendContinue", "Weiter", "Continue", "متابعة", "继续"},
    PanelWord{PanelText::TrendAdd, "Panel.TrendAdd", "Weiteren Wert antippen", "Touch a value to add it",
        "المس قيمة لإضافتها", "点按数值即可添加"},
    PanelWord{PanelText::TrendFull, "Panel.TrendFull", "höchstens vier Werte", "four values at most",
        "أربع قيم على الأكثر", "最多四个数值"},
    PanelWord{PanelText::Seconds, "Panel.Seconds", "s", "s", "ث", "秒"},
    PanelWord{PanelText::Minutes, "Panel.Minutes", "min", "min", "د", "分"},
    PanelWord{PanelText::NoScreen, "Panel.NoScreen", "Das Projekt hat kein Bild", "The project has no screen",
        "لا توجد في المشروع الشاشة", "项目中没有画面"},
    PanelWord{
        PanelText::NoFile, "Panel.NoFile", "Datei fehlt", "no such file", "الملف غير موجود", "文件不存在"},
    PanelWord{PanelText::NoTrace, "Panel.NoTrace", "Die Aufzeichnung kann nicht geschrieben werden:",
        "the trace cannot be written to", "تعذرت كتابة التسجيل:", "无法写入记录："},
    PanelWord{PanelText::NoJournal, "Panel.NoJournal",
        "Schreibvorgänge an die Maschine können nicht aufgezeichnet werden:",
        "writes to the machine cannot be recorded:", "تعذر تسجيل عمليات الكتابة إلى الماكينة:",
        "无法记录对机器的写入："},
    PanelWord{PanelText::LowRows, "Panel.LowRows",
        "Zeilen sind auf diesem Bildschirm niedriger als 9 mm, Diagonale in Zoll mindestens:",
        "Rows are lower than 9 mm on this screen, diagonal in inches at least:",
        "الصفوف أقل ارتفاعًا من 9 مم على هذه الشاشة، أقل قطر بالبوصة:",
        "此屏幕上的行高小于 9 毫米，对角线英寸数至少："},
    PanelWord{PanelText::ReadAnewLater, "Panel.ReadAnewLater",
        "Das Projekt wird neu gelesen, sobald alle Eingaben beendet sind",
        "The project is read anew once all inputs are finished",
        "ستُعاد قراءة المشروع بعد إنهاء جميع الإدخالات", "所有输入完成后将重新读取项目"},
    PanelWord{PanelText::NotReadAnew, "Panel.NotReadAnew", "Das Projekt wurde nicht neu gelesen",
        "The project was not read anew", "لم تُعَد قراءة المشروع", "项目未重新读取"},
};

using Column = const char* PanelWord::*;

struct Tongue {
    std::string_view code;
    Column column;
};

constexpr std::array tongues{Tongue{"de", &PanelWord::german}, Tongue{"en", &PanelWord::english},
    Tongue{"ar", &PanelWord::arabic}, Tongue{"zh", &PanelWord::chinese}};

// nullptr for a language in which the panel has no words. What follows "-" or "_" is a country.
Column columnOf(std::string_view languageCode)
{
    const std::string_view language = languageCode.substr(0, languageCode.find_first_of("-_"));
    for (const Tongue& tongue : tongues)
        if (tongue.code == language) return tongue.column;
    return nullptr;
}

} // namespace

const char* PanelWord::in(std::string_view languageCode) const
{
    const Column column = columnOf(languageCode);
    return column != nullptr ? this->*column : english;
}

std::span<const PanelWord> panelWords() { return words; }

const PanelWord& panelWord(PanelText text)
{
    for (const PanelWord& each : words)
        if (each.text == text) return each;
    return words.front();
}

bool speaks(std::string_view languageCode) { return columnOf(languageCode) != nullptr; }

} // namespace servopanel::machine
