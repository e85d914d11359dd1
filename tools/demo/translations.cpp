#include "demo/translations.h"

#include <QHash>

namespace demo {
namespace {

struct Translation {
    const char* english;
    const char* chinese;
};

const Translation Translations[] = {
    // Frame and titles
    {"Home", "首页"},
    {"Heating", "供暖"},
    {"Heating circuit", "供暖回路"},
    {"Water", "热水"},
    {"Hot water", "生活热水"},
    {"Energy", "能源"},
    {"Schedule", "日程"},
    {"Weekly schedule", "每周日程"},
    {"Settings", "设置"},
    {"Service", "服务"},
    {"Service and diagnostics", "服务与诊断"},
    // Home
    {"Welcome home", "欢迎回家"},
    {"Indoors °C", "室内 °C"},
    {"Target", "目标"},
    {"Set target", "设定目标"},
    {"Outdoors", "室外"},
    {"Partly cloudy", "多云"},
    {"Heat pump", "热泵"},
    {"Running", "运行中"},
    {"Supply", "供水"},
    {"Return", "回水"},
    {"Power", "功率"},
    {"Comfort", "舒适"},
    {"At home", "在家"},
    {"Eco", "节能"},
    {"Save energy", "节约能源"},
    {"Night", "夜间"},
    {"Sleep well", "安睡"},
    {"Away", "外出"},
    {"Nobody home", "家中无人"},
    {"Live gauges", "实时仪表"},
    {"Messages", "消息"},
    {"Tips", "小贴士"},
    {"Living area", "客厅"},
    {"Bedroom", "卧室"},
    {"Kitchen", "厨房"},
    {"Supply and return", "供水与回水"},
    // Heating circuit
    {"Plant", "系统"},
    {"Floor heating", "地暖"},
    {"Buffer", "缓冲罐"},
    {"Flow", "流量"},
    {"Pressure", "压力"},
    {"Heating curve", "供暖曲线"},
    {"Supply over outdoors, °C", "供水与室外温度, °C"},
    {"Slope", "斜率"},
    {"Parallel shift", "平移"},
    // Hot water
    {"Storage tank", "储水箱"},
    {"Upper", "上部"},
    {"Lower", "下部"},
    {"Target temperature", "目标温度"},
    {"Boost left", "加速剩余"},
    {"Boost", "加速"},
    {"Circulation", "循环"},
    {"Warm water at once", "即开即热"},
    {"Hygiene programme", "杀菌程序"},
    {"Weekly heat-up to 65 °C", "每周加热至 65 °C"},
    // Energy
    {"Electricity", "用电"},
    {"Heat", "制热"},
    {"Solar", "太阳能"},
    {"Efficiency", "能效"},
    {"This week", "本周"},
    {"Use of power", "用电分布"},
    {"kWh today", "今日 kWh"},
    {"Standby", "待机"},
    // Schedule
    {"Mon", "周一"},
    {"Tue", "周二"},
    {"Wed", "周三"},
    {"Thu", "周四"},
    {"Fri", "周五"},
    {"Sat", "周六"},
    {"Sun", "周日"},
    {"Copy day", "复制"},
    // Settings
    {"Brightness", "亮度"},
    {"Volume", "音量"},
    {"Auto-dimming", "自动调光"},
    {"Dims when nobody is near", "无人时变暗"},
    {"Key tones", "按键音"},
    {"A click at every touch", "触摸时发声"},
    {"Language", "语言"},
    {"Of this display", "本显示屏"},
    {"English", "中文"},
    {"Date and time", "日期与时间"},
    {"Change", "更改"},
    {"Date", "日期"},
    {"Set date", "设定日期"},
    {"Room", "房间"},
    {"Tap to name", "点按命名"},
    {"Child lock", "童锁"},
    {"Hold to lock, tap twice to free", "长按锁定，双击解锁"},
    // Service and diagnostics
    {"Readings", "读数"},
    {"Compressor speed", "压缩机频率"},
    {"Fan speed", "风机转速"},
    {"High pressure", "高压"},
    {"Low pressure", "低压"},
    {"Discharge gas", "排气温度"},
    {"Suction gas", "吸气温度"},
    {"Expansion valve", "膨胀阀"},
    {"Operating hours", "运行时间"},
    {"Refrigerant circuit", "制冷剂回路"},
    {"Compressor", "压缩机"},
    {"Valve", "阀门"},
    {"Evaporator", "蒸发器"},
    {"Condenser", "冷凝器"},
    {"Need help?", "需要帮助?"},
    {"Scan to send a\nreport to your\ninstaller.", "扫码将报告\n发送给安装商"},
    {"PIN", "密码"},
    // Pop-ups
    {"Away mode", "外出模式"},
    {"Keeps the house frost-free and heats up\nagain before you are back.",
     "保持房屋防冻, 并在您回家前\n重新升温"},
    {"days", "天"},
    {"Start away mode", "开启外出模式"},
    {"Hot water boost", "热水加速"},
    {"Heats the whole tank once,\nas fast as the heat pump can.", "以热泵最快速度\n将整箱水加热一次"},
    {"min", "分钟"},
    {"Start boost", "开始加速"},
    {"Cancel", "取消"},
};

const QHash<QString, QString>& table() {
    static const QHash<QString, QString> table = [] {
        QHash<QString, QString> texts;
        for (const auto& [english, chinese] : Translations) texts.insert(english, chinese);
        return texts;
    }();
    return table;
}

} // namespace

bool IsTranslated(const QString& english) { return table().contains(english); }

QString Chinese(const QString& english) { return table().value(english); }

} // namespace demo
