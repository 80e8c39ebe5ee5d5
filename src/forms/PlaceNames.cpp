#include "forms/PlaceNames.h"

#include "forms/Countries.h"
#include "forms/FieldWords.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Two letters and three letters of each country of the list.
constexpr QStringView kLongCodes =
    u"AFAFG ALALB DZDZA ASASM ADAND AOAGO AIAIA AQATA AGATG ARARG AMARM AWABW AUAUS ATAUT AZAZE BSBHS BHBHR BDBGD "
    u"BBBRB BYBLR BEBEL BZBLZ BJBEN BMBMU BTBTN BOBOL BABIH BWBWA BVBVT BRBRA IOIOT BNBRN BGBGR BFBFA BIBDI KHKHM "
    u"CMCMR CACAN CVCPV KYCYM CFCAF TDTCD CLCHL CNCHN CXCXR CCCCK COCOL KMCOM CGCOG CKCOK CRCRI CICIV HRHRV CUCUB "
    u"CYCYP CZCZE CDCOD DKDNK DJDJI DMDMA DODOM TPTLS ECECU EGEGY SVSLV GQGNQ ERERI EEEST ETETH FKFLK FOFRO FJFJI "
    u"FIFIN FRFRA GFGUF PFPYF TFATF GAGAB GMGMB GEGEO DEDEU GHGHA GIGIB GRGRC GLGRL GDGRD GPGLP GUGUM GTGTM GNGIN "
    u"GWGNB GYGUY HTHTI HMHMD HNHND HKHKG HUHUN ISISL ININD IDIDN IRIRN IQIRQ IEIRL ILISR ITITA JMJAM JPJPN JOJOR "
    u"KZKAZ KEKEN KIKIR KRKOR KWKWT KGKGZ LALAO LVLVA LBLBN LSLSO LRLBR LYLBY LILIE LTLTU LULUX MOMAC MKMKD MGMDG "
    u"MWMWI MYMYS MVMDV MLMLI MTMLT MHMHL MQMTQ MRMRT MUMUS YTMYT MXMEX FMFSM MDMDA MCMCO MNMNG MSMSR MAMAR MZMOZ "
    u"MMMMR NANAM NRNRU NPNPL NLNLD ANANT NCNCL NZNZL NINIC NENER NGNGA NUNIU NFNFK KPPRK MPMNP NONOR OMOMN PKPAK "
    u"PWPLW PAPAN PGPNG PYPRY PEPER PHPHL PNPCN PLPOL PTPRT PRPRI QAQAT REREU ROROU RURUS RWRWA WSWSM SMSMR SASAU "
    u"SNSEN YUSRB SCSYC SLSLE SGSGP SKSVK SISVN SBSLB SOSOM ZAZAF GSSGS ESESP LKLKA SHSHN KNKNA LCLCA PMSPM VCVCT "
    u"SDSDN SRSUR SJSJM SZSWZ SESWE CHCHE SYSYR TWTWN TJTJK TZTZA THTHA TGTGO TKTKL TOTON TTTTO TNTUN TRTUR TMTKM "
    u"TCTCA TVTUV UGUGA UAUKR AEARE UKGBR USUSA UMUMI UYURY UZUZB VUVUT VAVAT VEVEN VNVNM VGVGB VIVIR WFWLF YEYEM "
    u"ZMZMB ZWZWE";

/// What is dialled for each country of the list.
constexpr QStringView kCallingCodes =
    u"AF93 AL355 DZ213 AS1 AD376 AO244 AI1 AQ672 AG1 AR54 AM374 AW297 AU61 AT43 AZ994 BS1 BH973 BD880 BB1 BY375 "
    u"BE32 BZ501 BJ229 BM1 BT975 BO591 BA387 BW267 BV47 BR55 IO246 BN673 BG359 BF226 BI257 KH855 CM237 CA1 CV238 "
    u"KY1 CF236 TD235 CL56 CN86 CX61 CC61 CO57 KM269 CG242 CK682 CR506 CI225 HR385 CU53 CY357 CZ420 CD243 DK45 "
    u"DJ253 DM1 DO1 TP670 EC593 EG20 SV503 GQ240 ER291 EE372 ET251 FK500 FO298 FJ679 FI358 FR33 GF594 PF689 TF262 "
    u"GA241 GM220 GE995 DE49 GH233 GI350 GR30 GL299 GD1 GP590 GU1 GT502 GN224 GW245 GY592 HT509 HM672 HN504 HK852 "
    u"HU36 IS354 IN91 ID62 IR98 IQ964 IE353 IL972 IT39 JM1 JP81 JO962 KZ7 KE254 KI686 KR82 KW965 KG996 LA856 LV371 "
    u"LB961 LS266 LR231 LY218 LI423 LT370 LU352 MO853 MK389 MG261 MW265 MY60 MV960 ML223 MT356 MH692 MQ596 MR222 "
    u"MU230 YT262 MX52 FM691 MD373 MC377 MN976 MS1 MA212 MZ258 MM95 NA264 NR674 NP977 NL31 AN599 NC687 NZ64 NI505 "
    u"NE227 NG234 NU683 NF672 KP850 MP1 NO47 OM968 PK92 PW680 PA507 PG675 PY595 PE51 PH63 PN64 PL48 PT351 PR1 QA974 "
    u"RE262 RO40 RU7 RW250 WS685 SM378 SA966 SN221 YU381 SC248 SL232 SG65 SK421 SI386 SB677 SO252 ZA27 GS500 ES34 "
    u"LK94 SH290 KN1 LC1 PM508 VC1 SD249 SR597 SJ47 SZ268 SE46 CH41 SY963 TW886 TJ992 TZ255 TH66 TG228 TK690 TO676 "
    u"TT1 TN216 TR90 TM993 TC1 TV688 UG256 UA380 AE971 UK44 US1 UM1 UY598 UZ998 VU678 VA39 VE58 VN84 VG1 VI1 WF681 "
    u"YE967 ZM260 ZW263";

/// Countries where a 0 is dialled in front of an area's code, unless the call comes from abroad.
constexpr QStringView kWithTrunk = u"AT AU BE BG CH DE FI FR HR IE NL NZ RO SE SI SK UK";

struct OtherNames
{
    QStringView code;
    /// Parted by "|".
    QStringView names;
};

constexpr OtherNames kOtherNames[] = {
    {u"AR", u"Argentine|Argentinien"},
    {u"AT", u"Österreich|Autriche|Oostenrijk|Áustria"},
    {u"AU", u"Australien|Australie|Australië"},
    {u"BA", u"Bosnia & Herzegovina|Bosnien und Herzegowina"},
    {u"BE", u"Belgien|Belgique|België|Bélgica|Belgio"},
    {u"BO", u"Bolivia, Plurinational State of"},
    {u"BR", u"Brasil|Brasilien|Brésil|Brasile|Brazilië"},
    {u"BN", u"Brunei Darussalam"},
    {u"CA", u"Kanada|Canadá"},
    {u"CD", u"Congo, the Democratic Republic of the|Democratic Republic of the Congo|Congo - Kinshasa"},
    {u"CG", u"Congo - Brazzaville|Republic of the Congo"},
    {u"CH", u"Schweiz|Suisse|Suiza|Svizzera|Zwitserland|Suíça"},
    {u"CI", u"Ivory Coast|Elfenbeinküste"},
    {u"CN", u"Chine|Cina|People's Republic of China|中国"},
    {u"CV", u"Cabo Verde"},
    {u"CZ", u"Czechia|Tschechien|Tschechische Republik|République tchèque|Tchéquie|Chequia|Repubblica Ceca"},
    {u"DE", u"Deutschland|Allemagne|Alemania|Germania|Duitsland|Alemanha"},
    {u"DK", u"Dänemark|Danemark|Dinamarca|Danimarca|Denemarken|Danmark"},
    {u"ES", u"España|Spanien|Espagne|Spagna|Spanje|Espanha"},
    {u"FI", u"Finnland|Finlande|Finlandia|Suomi"},
    {u"FJ", u"Fiji"},
    {u"FK", u"Falkland Islands|Falkland Islands (Malvinas)"},
    {u"FM", u"Micronesia, Federated States of"},
    {u"FR", u"Frankreich|Francia|Frankrijk|França"},
    {u"GR", u"Griechenland|Grèce|Grecia|Griekenland|Grécia"},
    {u"HK", u"Hong Kong|Hongkong"},
    {u"HR", u"Croatia|Kroatien|Croatie|Croacia"},
    {u"HU", u"Ungarn|Hongrie|Hungría|Ungheria"},
    {u"IE", u"Irland|Irlande|Irlanda|Ierland|Republic of Ireland"},
    {u"IN", u"Indien|Inde"},
    {u"IR", u"Iran, Islamic Republic of"},
    {u"IT", u"Italien|Italie|Italia|Italië|Itália"},
    {u"JP", u"Japon|Giappone|日本"},
    {u"KP", u"Korea, Democratic People's Republic of|North Korea"},
    {u"KR", u"South Korea|Korea, Republic of|Republic of Korea|Südkorea|Korea (South)|Korea, South"},
    {u"LA", u"Lao People's Democratic Republic"},
    {u"LU", u"Luxemburg|Luxemburgo|Lussemburgo"},
    {u"LY", u"Libyan Arab Jamahiriya"},
    {u"MD", u"Moldova, Republic of|Republic of Moldova"},
    {u"MK", u"North Macedonia|Macedonia, the former Yugoslav Republic of"},
    {u"MO", u"Macao|Macau"},
    {u"MX", u"México|Mexiko|Mexique|Messico"},
    {u"NL", u"Niederlande|Pays-Bas|Países Bajos|Paesi Bassi|Nederland|The Netherlands|Holland"},
    {u"NO", u"Norwegen|Norvège|Noruega|Norvegia|Noorwegen|Norge"},
    {u"NZ", u"Neuseeland|Nouvelle-Zélande|Nueva Zelanda|Nuova Zelanda"},
    {u"PL", u"Polen|Pologne|Polonia|Polska"},
    {u"PN", u"Pitcairn"},
    {u"PT", u"Portogallo"},
    {u"RE", u"Réunion"},
    {u"RO", u"Rumänien|Roumanie|Rumania"},
    {u"RU", u"Russian Federation|Russland|Russie|Rusia|Россия"},
    {u"SE", u"Schweden|Suède|Suecia|Svezia|Zweden|Sverige"},
    {u"SH", u"Saint Helena"},
    {u"SK", u"Slowakei|Slovaquie|Eslovaquia"},
    {u"SY", u"Syrian Arab Republic"},
    {u"SZ", u"Eswatini"},
    {u"TP", u"Timor-Leste"},
    {u"TR", u"Türkei|Turquie|Turquía|Turchia|Türkiye"},
    {u"TW", u"Taiwan, Province of China"},
    {u"TZ", u"Tanzania, United Republic of"},
    {u"UK", u"Great Britain|Great Britain (UK)|Vereinigtes Königreich|Großbritannien|Royaume-Uni|Reino Unido|Regno "
            u"Unito|Verenigd Koninkrijk|United Kingdom of Great Britain and Northern Ireland|England|U.K."},
    {u"US", u"USA|U.S.A.|United States of America|The United States|Vereinigte Staaten|Vereinigte Staaten von "
            u"Amerika|États-Unis|Etats Unis d'Amérique|Estados Unidos|Stati Uniti|Verenigde Staten|America"},
    {u"VA", u"Holy See (Vatican City State)|Vatican|Holy See"},
    {u"VE", u"Venezuela, Bolivarian Republic of"},
    {u"VG", u"Virgin Islands, British|British Virgin Islands"},
    {u"VI", u"Virgin Islands, U.S.|U.S. Virgin Islands|US Virgin Islands"},
    {u"VN", u"Vietnam"},
    {u"YU", u"Serbia|Serbien|Serbie"},
    {u"ZA", u"Südafrika|Afrique du Sud|Sudáfrica"},
};

struct States
{
    QStringView country;
    /// Name, blank and code of each, parted by "|".
    QStringView rows;
};

constexpr States kStates[] = {
    {u"US", u"Alabama AL|Alaska AK|Arizona AZ|Arkansas AR|California CA|Colorado CO|Connecticut CT|Delaware "
            u"DE|District of Columbia DC|Florida FL|Georgia GA|Hawaii HI|Idaho ID|Illinois IL|Indiana IN|Iowa "
            u"IA|Kansas KS|Kentucky KY|Louisiana LA|Maine ME|Maryland MD|Massachusetts MA|Michigan MI|Minnesota "
            u"MN|Mississippi MS|Missouri MO|Montana MT|Nebraska NE|Nevada NV|New Hampshire NH|New Jersey NJ|New "
            u"Mexico NM|New York NY|North Carolina NC|North Dakota ND|Ohio OH|Oklahoma OK|Oregon OR|Pennsylvania "
            u"PA|Puerto Rico PR|Rhode Island RI|South Carolina SC|South Dakota SD|Tennessee TN|Texas TX|Utah "
            u"UT|Vermont VT|Virginia VA|Washington WA|West Virginia WV|Wisconsin WI|Wyoming WY"},
    {u"CA", u"Alberta AB|British Columbia BC|Manitoba MB|New Brunswick NB|Newfoundland and Labrador NL|Northwest "
            u"Territories NT|Nova Scotia NS|Nunavut NU|Ontario ON|Prince Edward Island PE|Quebec QC|Saskatchewan "
            u"SK|Yukon YT"},
    {u"AU", u"Australian Capital Territory ACT|New South Wales NSW|Northern Territory NT|Queensland QLD|South "
            u"Australia SA|Tasmania TAS|Victoria VIC|Western Australia WA"},
};

/// What stands behind a country's code in a table of such pairs, parted by blanks; empty for none.
QString pairedWith(QStringView table, const QString &code)
{
    for (qsizetype at = 0, end = 0; !code.isEmpty() && at < table.size(); at = end + 1) {
        end = table.indexOf(u' ', at);
        if (end < 0)
            end = table.size();
        if (table.sliced(at).startsWith(code))
            return table.sliced(at + code.size(), end - at - code.size()).toString();
    }
    return {};
}

QStringList foldedParts(QStringView names)
{
    QStringList parts;
    for (const QStringView name : names.split(u'|'))
        parts.append(foldedLetters(name));
    return parts;
}

} // namespace

QStringList namesOfCountry(const QString &code, const QString &name)
{
    QStringList names{foldedLetters(name)};
    for (const OtherNames &row : kOtherNames) {
        if (row.code == code)
            names.append(foldedParts(row.names));
    }
    return names;
}

QString longCodeOfCountry(const QString &code)
{
    return pairedWith(kLongCodes, code);
}

QString callingCodeOfCountry(const QString &code)
{
    return pairedWith(kCallingCodes, code);
}

QString trunkOfCountry(const QString &code)
{
    return kWithTrunk.split(u' ').contains(code) ? u"0"_s : QString();
}

QStringList codesOfCountry(const QString &code)
{
    QStringList codes{code};
    if (code == u"UK")
        codes.append(u"GB"_s);
    else if (code == u"YU")
        codes.append(u"RS"_s);
    else if (code == u"TP")
        codes.append(u"TL"_s);
    codes.append(longCodeOfCountry(code));
    for (QString &each : codes)
        each = each.toLower();
    codes.removeAll(QString());
    return codes;
}

bool isCountryName(const QString &folded)
{
    static const QSet<QString> names = [] {
        QSet<QString> all;
        for (const Country &country : countries()) {
            for (const QString &name : namesOfCountry(country.code.toString(), country.name.toString()))
                all.insert(name);
        }
        return all;
    }();
    return names.contains(folded);
}

StateName stateOf(const QString &text, const QString &countryCode)
{
    const QString folded = foldedLetters(text);
    for (const States &states : kStates) {
        if (!countryCode.isEmpty() && states.country != countryCode)
            continue;
        for (const QStringView row : states.rows.split(u'|')) {
            const qsizetype blank = row.lastIndexOf(u' ');
            const QStringView name = row.first(blank);
            const QStringView code = row.sliced(blank + 1);
            if (folded == foldedLetters(name) || folded == foldedLetters(code))
                return {name.toString(), code.toString()};
        }
    }
    return {text, folded.size() <= 3 ? text : QString()};
}
