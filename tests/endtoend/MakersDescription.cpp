// SPDX-License-Identifier: Apache-2.0
#include "endtoend/MakersDescription.h"

#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

using namespace DescriptionBuilder;

namespace {

// Registers one after the other.
class Registers
{
public:
    QString integer(const QString& name, int bytes, const char* sign)
    {
        return node("IntReg"_s, name, place(bytes) + child("Sign"_s, QLatin1String(sign)) + end());
    }
    QString real(const QString& name, int bytes)
    {
        return node("FloatReg"_s, name, place(bytes) + end());
    }
    QString bits(const QString& name, int lowest, int highest)
    {
        return node("MaskedIntReg"_s, name,
                    place(4) + child("LSB"_s, QString::number(highest)) +
                        child("MSB"_s, QString::number(lowest)) + child("Sign"_s, "Unsigned"_s) +
                        end());
    }
    QString text(const QString& name)
    {
        return node("StringReg"_s, name, streamable() + place(kTextBytes));
    }
    // One for each setting of the two selectors.
    QString selected(const QString& name, const QString& outer, const QString& inner)
    {
        const QString index = "<pIndex Offset=\"%1\">%2</pIndex>"_s;
        return node("FloatReg"_s, name,
                    place(4 * kInner * kOuter) + index.arg(4 * kInner).arg(outer) +
                        index.arg(4).arg(inner) + end())
            .replace("<Length>%1</Length>"_s.arg(4 * kInner * kOuter), "<Length>4</Length>"_s);
    }
    static QString streamable() { return child("Streamable"_s, "Yes"_s); }

    static constexpr int kOuter = 3;
    static constexpr int kInner = 4;

private:
    static constexpr int kTextBytes = 64;

    QString place(int bytes)
    {
        const QString address = child("Address"_s, "0x%1"_s.arg(m_next, 0, 16));
        m_next += bytes;
        return address + child("Length"_s, QString::number(bytes)) + child("AccessMode"_s, "RW"_s) +
               child("pPort"_s, "Device"_s);
    }
    static QString end() { return child("Endianess"_s, "BigEndian"_s); }

    int m_next = 0x10000;
};

QString feature(const char* tag, const QString& name, const QString& more = QString())
{
    return node(QLatin1String(tag), name,
                child("DisplayName"_s, name) + Registers::streamable() + more +
                    child("pValue"_s, name + "Reg"_s));
}

QString entries(int count, int step)
{
    QString all;
    for (int i = 0; i < count; ++i)
        all += node("EnumEntry"_s, "Entry%1"_s.arg(i), child("Value"_s, QString::number(i * step)));
    return all;
}

QString module(const QString& name, Registers& registers, QStringList& members)
{
    const auto called = [&](const char* what) {
        members.append(name + QLatin1String(what));
        return members.last();
    };
    QString all;
    all += feature("Enumeration", called("Mode"), entries(5, 3));
    all += registers.bits(members.last() + "Reg"_s, 4, 11);
    all += feature("Boolean", called("Enable"),
                   child("OnValue"_s, "2"_s) + child("OffValue"_s, "5"_s));
    all += registers.integer(members.last() + "Reg"_s, 4, "Unsigned");
    all += feature("Integer", called("Count"));
    all += registers.integer(members.last() + "Reg"_s, 8, "Signed");
    all += feature("Float", called("Level"));
    all += registers.real(members.last() + "Reg"_s, 4);
    all += feature("Float", called("Ratio"));
    all += registers.real(members.last() + "Reg"_s, 8);
    all += feature("Converter", called("Delay"),
                   child("FormulaTo"_s, "FROM * 8"_s) + child("FormulaFrom"_s, "TO / 8.0"_s));
    all += registers.integer(members.last() + "Reg"_s, 4, "Signed");
    all += registers.text(called("Note"));
    all += feature("Integer", called("Flag"));
    all += registers.bits(members.last() + "Reg"_s, 7, 9);
    return node("Group"_s, name, all).replace("<Group Name="_s, "<Group Comment="_s);
}

} // namespace

QByteArray MakersDescription::make(int modules)
{
    Registers registers;
    QString all;
    QStringList categories = {"MakerControl"_s};
    for (int i = 0; i < modules; ++i) {
        QStringList members;
        const QString name = "Unit%1"_s.arg(i);
        all += module(name, registers, members);
        categories.append(name + "Control"_s);
        all += category(categories.last(), members);
    }
    const QString inner = child("pSelected"_s, "MakerInner"_s);
    const QString curve = child("pSelected"_s, "MakerCurve"_s);
    all += feature("Enumeration", "MakerOuter"_s, entries(Registers::kOuter, 1) + inner);
    all += registers.integer("MakerOuterReg"_s, 4, "Unsigned");
    all += feature("Integer", "MakerInner"_s,
                   child("Min"_s, "0"_s) + child("Max"_s, QString::number(Registers::kInner - 1)) +
                       curve);
    all += registers.integer("MakerInnerReg"_s, 4, "Unsigned");
    all += feature("Float", "MakerCurve"_s);
    all += registers.selected("MakerCurveReg"_s, "MakerOuterReg"_s, "MakerInnerReg"_s);
    all += node("Port"_s, "Device"_s);
    return wrap(category("Root"_s, categories) +
                category("MakerControl"_s, words("MakerOuter MakerInner MakerCurve")) + all);
}
