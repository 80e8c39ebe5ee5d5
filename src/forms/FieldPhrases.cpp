#include "forms/FieldPhrases.h"

namespace {

using enum FieldKind;

constexpr bool kStrong = false;
constexpr bool kWeak = true;

// Lines are broken between phrases only.
// clang-format off
constexpr FieldPhrases kPhrases[] = {
    // Words that hold others by chance.
    {Trap, kStrong,
     u"statement|=estate|interstate|capacity|velocity|ethnicity|publicity|electricity|specificity|automobile|"
     u"mailing|iphone|interphone|microphone|today|yesterday|holiday|monday|sunday|file name|host name|domain name|"
     u"tournament|provider|provided|provision|approve|improve|middlesex|sussex|essex|sub title|user agent|postcard|"
     u"hotel|cardinal|discard|address book|zipper|landscape|name plate|yearly|monthly|birthday card|phonetic|"
     u"name space|rename|statistic|transparent|apparent|occupant|occupants|occupancy|no po box|no post office"},
    // Whose name is the user's.
    {Trap, kStrong,
     u"'customer s|'holder s|'cardholder s|'account holder s|'buyer s|'purchaser s|'applicant s|'guest s|"
     u"'passenger s|'traveler s|'traveller s|'patient s|'student s|'donor s|'member s|'user s|'owner s|'sender s|"
     u"'subscriber s|'client s|'attendee s|'participant s|'employee s|'driver s|'person s|'candidate s|'recipient s|"
     u"'contact s|'today s|'parent s"},

    // What is nobody's business, or not the user's own.
    {Never, kStrong,
     u"search|=query|keyword|suche|suchbegriff|=such|recherche|rechercher|buscar|=busca|busqueda|=cerca|ricerca|"
     u"zoeken|pesquisa|pesquisar|поиск|検索|搜索|검색"},
    {Never, kStrong,
     u"captcha|robot|are you human|characters you see|characters shown|image code|code in the image|spam|honeypot|"
     u"leave this|leave blank|leave empty|do not fill|leer lassen|fake|ne pas remplir|no rellenar"},
    {Never, kStrong,
     u"coupon|promo code|promotion code|promotional code|=promo|voucher|discount code|gutschein|gutscheincode|gift|"
     u"rabattcode|code promo|codigo promocional|cupon|codice sconto|bon de reduction|kortingscode|промокод|geschenk|"
     u"cadeau|regalo|redeem"},
    {Never, kStrong,
     u"password|passwort|passwd|=pwd|passphrase|kennwort|mot de passe|=mdp|contrasena|senha|wachtwoord|пароль|パスワード|"
     u"密码|비밀번호|=otp|one time|onetimecode|sms code|verify code|login code|two factor|2fa|=mfa|totp|authenticator|"
     u"=tan|pin code sms|einmalcode|código sms|=pass|=pw|pass1|pass2|userpass|passcode|=psw"},
    {Never, kStrong,
     u"friend|freund|=ami|amigo|amico|recipient email|recipients email|recipient mail|recipient phone|"
     u"recipients phone|email recipient|email of recipient|emergency|notfallkontakt|spouse|ehepartner|conjoint|"
     u"conyuge|beneficiary|=referrer|referral|=referred|refer a|mother|maiden|father|child first|child last|"
     u"child name|childs|your child|kid name|guardian|coapplicant|next of kin|recipient s mail|receiver email|"
     u"gift recipient|^to email|friends name|parent 1|parent 2|parent guardian|=tribute|honoree|honouree|memorial|"
     u"in memory|in honor|in honour|doctor|=gp|physician|pharmacy|guarantor|policy holder|coborrower|co registrant|"
     u"co owner|co buyer|cosigner|supervisor|representative|representante|representant|fundraiser|landlord|attorney|"
     u"dependent|dependant|erziehungsberechtigt|erziehungsberechtigten|tuteur legal|reference 1|reference 2|=ref1|"
     u"=ref2|reference name|=werber|=werbers|geworben von|empfehlung|parrain|parrainage|padrino"},
    {Never, kStrong,
     u"=ssn|social security|=sin number|taxid|tax number|=tin|=vat|vatid|vat number|vat no|ust id|steuernummer|"
     u"=uid nr|siret|siren|=nif|=cif|=dni|=nie|=cpf|=cnpj|=rfc|codice fiscale|partita iva|=piva|passport number|"
     u"passportno|passport expiry|passport exp|driver license|drivers license|driving licence|licence number|"
     u"license number|=id number|national id|personalausweis|ausweisnummer|=iban|=bic|swift code|sort code|"
     u"bankleitzahl|=blz|kontonummer|numero de compte|routing"},
    {Never, kStrong,
     u"birthplace|place of birth|city of birth|birth city|country of birth|birth country|town of birth|"
     u"state of birth|birth name|geburtsort|geburtsland|geburtsname|lieu de naissance|pays de naissance|"
     u"ville de naissance|nom de naissance|lieu naissance|pays naissance|ville naissance|nom naissance|"
     u"commune de naissance|commune naissance|departement de naissance|departement naissance|lugar de nacimiento|"
     u"lugar nacimiento|pais de nacimiento|pais nacimiento|ciudad de nacimiento|provincia de nacimiento|"
     u"luogo di nascita|luogo nascita|comune di nascita|comune nascita|provincia di nascita|provincia nascita|"
     u"geboorteplaats|nationality|citizenship|nationalitat|staatsangehorigkeit|nationalite|nacionalidad|nazionalita|"
     u"nationaliteit|security question|security answer|secret question|secret answer|challenge|sicherheitsfrage|"
     u"question secrete|pregunta de seguridad|your answer"},

    // Parts of other things, said with the same words.
    {Other, kStrong,
     u"middle name|=middle|middle initial|=mi|=mname|initial|initials|zweiter vorname|deuxieme prenom|"
     u"segundo nombre|second prenom|segundo apellido|apellido2|apellido materno|secondo nome|name suffix|"
     u"namenszusatz|phonetic name|first name kana|last name kana|family name kana|=kana|furigana|フリガナ|カナ|かな|ふりがな|"
     u"отчество|tussenvoegsel|patronymic|=former|'vorherige|'vorheriger|'fruhere|'bisherige|'bisheriger|'anterior|"
     u"'precedente|formerly|=previous|=prev|prior address|old address|other names|other first names|autres prenoms|"
     u"otros nombres|weitere vornamen|2 apellido|2º apellido|2o apellido|2do apellido|=ape2|preferred name|"
     u"preferred first|'s email|'s date|'alte"},
    {Other, kStrong,
     u"phone ext|phone extension|=ext|extension|durchwahl|=anexo|numero de poste|=interno tel|phone type|"
     u"type of phone|phone carrier|phone model|telephone type|mobile carrier|phone verification"},
    {Other, kStrong,
     u"address type|type of address|address name|address label|address nickname|address title|address3|addressline3|"
     u"addr3|address line three|street3|street address line 3|street line 3|line3|address4|address line 4|zip4|"
     u"zip plus 4|zip ext|zip extension|plus4|post office box|post box|po box|postfach nr|postfach|boite postale|"
     u"apartado|urbanization|country id number|packstation|foreign|numero interior|num interior|numint|"
     u"'postcode lookup|address lookup|find your address|find address|address finder|address search|"
     u"huisnummer toevoeging|hnr toev|house number addition|hausnummerzusatz|hausnr zusatz|property zip|"
     u"property city|property postcode|property address|^work address|desired position|position desired|"
     u"position applied|position sought|wunschposition|poste souhaite|puesto deseado|'find a store|"
     u"additional driver|additional passenger|additional traveler|additional guest|tarjeta cliente|carte voyageur|"
     u"carte client|'store city|'store state|'store zip|'store address|years at|months at|time at|how long|"
     u"ort datum|ort und datum|place and date|lieu et date|lugar y fecha|employer|arbeitgeber|employeur|=empleador|"
     u"werkgever|subdivision|cross street|nearest|landmark|doorcode|entry code|gate code|=ip address|web address|"
     u"wallet address|delivery instructions|instructions|neighborhood|neighbourhood|bairro|colonia|job address|"
     u"job site|job location|job city|job zip|job postcode|job suburb|job desc"},
    {Other, kStrong,
     u"passport|issued by|issuing state|issuing country|state issued|state of issue|license state|licence state|"
     u"mail stop|bank account|bank acct|bank code|bank number|bank branch|bank address|bank contact|bank manager|"
     u"bank phone|bank city|bank id|bank country|issue number|issueno|issue date|start date|valid from|start month|"
     u"start year|card issue|departure|depart|depdate|arrival|arrive|check in|'check out|^checkout|checkout date|"
     u"pick up|drop off|return date|travel date|delivery date|delivery day|delivery time|appointment|event date|"
     u"from date|to date|date from|date to|start day|end date|end day|end month|end year|graduation|abreise|anreise|"
     u"hinfahrt|ruckfahrt|fecha de salida|fecha de llegada|date depart|date de depart|date retour|move in|=moved|"
     u"wedding|anniversary|airport|=origin|destination|city or airport|leaving from|going to|flying from|flying to|"
     u"flughafen|abflughafen|zielflughafen|aeropuerto|aeroport|aeroporto|bank officer|card nickname"},
    {Other, kStrong,
     u"'membership|^membership|membership number|membership no|membership id|membership type|membership card|"
     u"membership level|member id|member number|member no|'loyalty|^loyalty|loyalty number|loyalty card|loyalty id|"
     u"loyalty no|loyalty program|frequent flyer|frequent flier|bonus card|bahncard|payback|customer number|"
     u"customer id|customer no|kundennummer|numero client|order number|orderid|order no|bestellnummer|^invoice|"
     u"invoice number|invoice no|invoice nr|invoice id|invoice date|invoice amount|rechnungsnummer|reference number|"
     u"reservation number|booking number|confirmation number|case number|policy number|account number|account no|"
     u"accno|acct no|student id|employee id|serial number|registration number|id card|library card|railcard|"
     u"travelcard|student card|health card|insurance card|discount card|fuel card|kundenkarte|carte de fidelite|"
     u"carte vitale|carte d identite|tarjeta sanitaria|tarjeta de fidelidad|job name|job number|job id|store card|"
     u"store charge|charge card|plus card|'rewards|^rewards|rewards number|rewards card|rewards id|rewards no|"
     u"reward card|club card|license plate|vin number|tracking number"},
    {Other, kStrong,
     u"quantity|=qty|amount|betrag|=menge|=anzahl|cantidad|quantite|montant|importe|quantita|importo|aantal|price|"
     u"preis|'donation|^donation|donation amount|income|salary|budget|'adults|^adults|'children|^children|"
     u"'passengers|^passengers|'guests|^guests|rooms|room number|nights|=age|=alter|height|weight|=size|colour|"
     u"=color|parcelas|installment|instalment|installments|instalments|ratenzahlung|=raten|cuotas|mensualidades"},
    {Other, kStrong,
     u"pet name|project name|event name|product name|team name|store name|shop name|shopurl|group name|list name|"
     u"program name|class name|course name|model name|brand name|device name|hotel name|club name|agency name|"
     u"building name|property name|venue name|restaurant name|page name|workspace|channel name|account nickname|"
     u"posting title|post title|listing title|=ad title|page title|character name|nameserver|vereinsname|projektname|"
     u"produktname|'campaign|^campaign|campaign name|campaign id|campaign code"},
    {Other, kStrong,
     u"website|homepage|=www|webseite|site web|sitio web|=url|weburl|urlname|site name|blog|facebook|twitter|"
     u"linkedin|instagram|skype|=icq|=aim|whatsapp group|telegram"},
    {Other, kStrong,
     u"language|=sprache|langue|idioma|lingua|currency|wahrung|devise|moneda|time zone|zeitzone|email format|"
     u"email type|email frequency|email preference|email opt in|email password|hear about|how did you|referred by|"
     u"industry|branche|secteur|education|school|university|degree|marital|familienstand|religion|ethnic|=race|"
     u"freeform|self describe|please specify|veteran|=hobby|interests|relationship"},

    // The record's own, in its order.
    {Sex, kStrong, u"~sex|gender|geschlecht|sexe|sexo|sesso|genere|geslacht|genero|=пол|性别|性別|성별"},
    {FullName, kStrong,
     u"full name|complete name|first and last name|first last name|first name last name|name and surname|"
     u"first name and last name|vor und nachname|vorname und nachname|vorname nachname|vollstandiger name|"
     u"nom complet|nom et prenom|nom prenom|prenom et nom|nombre completo|nombre y apellidos|nombre y apellido|"
     u"nome completo|nome e cognome|volledige naam|nome e sobrenome|vor zuname|vor und zuname|vor u nachname|"
     u"vor u zuname|name vorname|name und vorname|nachname vorname|nombre apellidos|nombre apellido|"
     u"apellidos y nombre|imie i nazwisko|imie nazwisko|фио|полное имя|your name|contact name|ansprechpartner|氏名|"
     u"フルネーム|姓名|성명|піб|повне імя|ad soyad|adı soyadı|adınız soyadınız|koko nimi|teljes nev|nume complet|"
     u"numele complet|ονοματεπωνυμο|nama lengkap|ho va ten|ho ten|الاسم الكامل|שם מלא|पूरा नाम|real name"},
    {FirstName, kStrong,
     u"first name|=fname|forename|given name|vorname|vornamen|prenom|nombre de pila|primer nombre|voornaam|"
     u"primeiro nome|christian name|namefirst|first nm|firstn|=имя|nombres|名字|=mei|name mei|full name first|fornamn|"
     u"fornavn|=imie|jmeno|firstnames|імя|'ad|'adı|adınız|etunimi|keresztnev|prenume|ονομα|nama depan|^ten|"
     u"الاسم الأول|الاسم الاول|שם פרטי|ชื่อ|ชื่อจริง|पहला नाम|प्रथम नाम|=meno|نام"},
    {LastName, kStrong,
     u"last name|=lname|surname|family name|nachname|votre nom de famille|familienname|zuname|nom de famille|"
     u"apellido|apellidos|primer apellido|cognome|achternaam|sobrenome|apelido|second name|namelast|last nm|lastn|"
     u"фамилия|=姓|姓氏|=성|=sei|name sei|full name last|efternamn|efternavn|etternavn|nazwisko|prijmeni|soyad|soyadi|"
     u"nom famille|=ape1|прізвище|sukunimi|vezeteknev|'nume|επωνυμο|nama belakang|^ho|اسم العائلة|اللقب|שם משפחה|"
     u"นามสกุล|उपनाम|priezvisko|نام خانوادگی"},
    {FullName, kStrong,
     u"name on card|name on the card|name on credit card|card holder name|cardholder|card name|ccname|cc holder|"
     u"cc owner|card owner|card holders name|name as it appears|name as appears|credit card name|karteninhaber|"
     u"inhaber|name auf der karte|name auf karte|titulaire|nom sur la carte|titular|nombre en la tarjeta|"
     u"nombre del titular|titolare|intestatario|kaarthouder|naam op kaart|nome no cartao|имя на карте|"
     u"владелец карты|カード名義|владельца карты|имя владельца карты|имя владельца|имя держателя|имя держателя карты|持卡人|"
     u"imię i nazwisko na karcie|імя власника картки|імя на картці|kart uzerindeki isim|kart sahibi|navn pa kort|"
     u"navn pa kortet|namn pa kort|namn pa kortet|kortinnehavare|kortholder|kortinhaltijan nimi|kortinhaltija|"
     u"jmeno na karte|meno na karte|drzitel karty|kartyabirtokos neve|kartyabirtokos|numele titularului|"
     u"titularul cardului|ονομα κατοχου καρτας|κατοχος καρτας|nama pada kartu|pemegang kartu|ten tren the|chu the|"
     u"اسم حامل البطاقة|الاسم على البطاقة|שם בעל הכרטיס|ชื่อบนบัตร|कार्ड पर नाम|कार्डधारक"},
    {Fax, kStrong, u"~fax|telefax|faxnummer|telefaxnummer|telecopie|faxnumber|факс|ファックス|传真"},
    {PhoneCountry, kStrong,
     u"phone country|phone country code|phone code|mobile country code|mobile code|tel country code|"
     u"country calling code|calling code|dial code|dialing code|dialling code|isd code|intl code|international code|"
     u"landervorwahl|landesvorwahl|phone prefix country|indicatif|codigo de pais|prefisso internazionale|"
     u"country phone code|country dial|phone ccode|mobile country|tel country|phone nation"},
    {PhoneArea, kStrong,
     u"area code|phone area|phone area code|telephone area|vorwahl|ortsvorwahl|codigo de area|prefijo|std code|"
     u"prefisso|=ddd|=lada|clave lada|netnummer|区号|市外局番|phone number area|phone a code"},
    {PhonePrefix, kStrong, u"phone prefix|phone exchange|tel prefix|市内局番"},
    {PhoneSuffix, kStrong, u"phone suffix|tel suffix|phone line number|phone last four|phone last 4"},
    {Phone, kStrong,
     u"phon|phone|phone number|=tel|telno|telnr|telnum|telephone|telefon|telefono|telefoon|telefone|mobile|"
     u"mobilnummer|mobiltelefon|=mobil|=handy|handynummer|rufnummer|cell phone|=cell|cellular|cellulare|celular|"
     u"=movil|portable|=gsm|contact number|=contact no|daytime number|evening number|landline|telemovel|=mobiel|"
     u"mobielnummer|alternative number|whatsapp|телефон|電話|电话|手机|携帯|전화|휴대|mobilfunk|festnetz|=fon|=ph|=tlf|phone no|"
     u"contact phone|numero de contact|numero de contacto|puhelin|telefonnummer|=natel|matkapuhelin|τηλεφωνο|κινητο|"
     u"telepon|nomor telepon|điện thoại|số điện thoại|رقم الهاتف|الهاتف|الجوال|טלפון|נייד|โทรศัพท์|फ़ोन|मोबाइल|تلفن"},
    {BirthYear, kStrong,
     u"birth year|year of birth|yob|byear|bday year|bday yyyy|bday yy|dob year|dob yyyy|geburtsjahr|"
     u"annee de naissance|ano de nacimiento|ano nacimiento|anno di nascita|geboortejaar|birthday year"},
    {BirthMonth, kStrong,
     u"birth month|month of birth|bmonth|bday month|bday mm|dob month|dob mm|geburtsmonat|mois de naissance|"
     u"mes de nacimiento|mes nacimiento|mese di nascita|geboortemaand|birthday month"},
    {BirthDay, kStrong,
     u"day of birth|geb tag|geburts tag|birthday day|bday day|bday dd|dob day|dob dd|jour de naissance|"
     u"dia de nacimiento|dia nacimiento|giorno di nascita|geboortedag|birth dd|birthdate day"},
    {BirthDate, kStrong,
     u"birth|birthday|birthdate|date of birth|=dob|bday|geburtsdatum|geburtstag|geburt|date de naissance|naissance|"
     u"fecha de nacimiento|nacimiento|data di nascita|nascita|geboortedatum|geboorte|data de nascimento|nascimento|"
     u"дата рождения|生年月日|出生日期|생년월일|geb datum|=geb|fecha nac|fec nac|data urodzenia|fodelsedatum|fodselsdato|"
     u"datum narozeni|dogum tarihi|syntymaaika"},
    {CardMonth, kStrong,
     u"exp month|expir month|expire month|expires month|expiry month|expiration month|expmo|exp mm|card month|"
     u"ccmonth|cc mm|ablaufmonat|verfallsmonat|gueltigmonat|gultig monat|mois expiration|mois d expiration|"
     u"mes de caducidad|mes vencimiento|mese scadenza|exp date month|exp date mm|expiration date month|exp m|ccexpm|"
     u"ccexpmonth|valid month|valid to month|valid until month|card exp month|mes expiracion|expiracion mes|"
     u"expire mm"},
    {CardYear, kStrong,
     u"exp year|expir year|expire year|expires year|expiry year|expiration year|expyr|exp yy|exp yyyy|card year|"
     u"ccyear|cc yy|cc yr|ablaufjahr|verfallsjahr|gueltigjahr|gultig jahr|annee expiration|annee d expiration|"
     u"ano de caducidad|ano vencimiento|anno scadenza|exp date year|exp date yy|expiration date year|exp y|ccexpy|"
     u"ccexpyear|valid year|valid to year|valid until year|cardexpyear|ano expiracion|expiracion ano|expire yy"},
    {CardDate, kStrong,
     u"exp|exp date|expiration|expiration date|expiry|expiry date|expires|expire|valid thru|valid through|"
     u"valid until|valid to|good thru|gultig bis|gultigkeit|gueltig bis|ablaufdatum|verfallsdatum|"
     u"verfallsdatum karte|caducidad|vencimiento|vence|date d expiration|expire fin|validite|valable jusqu|scadenza|"
     u"vervaldatum|geldig tot|validade|срок действия|有効期限|有效期|유효기간|ccexp|card exp|expiracion|fecha exp|scad|到期日|到期|"
     u"만료일|만료|data waznosci|waznosc|geldig tot en met|gueltigkeit|срок|термін дії|son kullanma tarihi|utgangsdatum|"
     u"giltig till|udlobsdato|utlopsdato|gyldig til|voimassaoloaika|platnost|lejarat|data expirarii|"
     u"ημερομηνία λήξης|ληξη|kedaluwarsa|berlaku hingga|ngay het han|تاريخ الانتهاء|תוקף|วันหมดอายุ|समाप्ति तिथि"},
    {Mail, kStrong,
     u"email|mail|email address|mailadresse|emailadresse|emailid|mail address|adresse electronique|adresse mail|"
     u"adresse e mail|courriel|correo electronico|correo|=correio|posta elettronica|почта|メール|邮箱|邮件|電子郵件|이메일|메일|"
     u"epost|eposta|пошта|sahkoposti|البريد الإلكتروني|البريد الالكتروني|דואל|אימייל|อีเมล|ईमेल|ایمیل"},
    {CardType, kStrong,
     u"cardtyp|card type|cctype|credit card type|card brand|card kind|type of card|kartentyp|kartenart|"
     u"kreditkartentyp|type de carte|tipo de tarjeta|tipo tarjeta|tipo di carta|tipo carta|tipo de cartao|カード種類|"
     u"カード会社"},
    {CardCode, kStrong,
     u"=cvv|=cvc|=csc|=cvn|=ccv|=cid|=cv2|cvv2|cvc2|cvv number|cvvcode|cvccode|=cvd|=cvs|cardcvv|cardcvc|cccvv|"
     u"cccvc|ccvv|ccid|cccsc|creditcardcvv|card code|card verification|card security|card id number|"
     u"kartenprufnummer|kartenprufziffer|cryptogramme|cccode"},
    {CardNumber, kStrong,
     u"card number|cardnum|card no|card nbr|card nr|credit num|credit no|cc num|cc number|cc no|cc nr|"
     u"number on card|credit card number|debit card number|card account|cc account|kartennummer|kreditkartennummer|"
     u"kreditkarten nr|numero de carte|numero de votre carte|numero de la carte|carte num|=carte no|tarjeta num|"
     u"karte nr|karten nr|numero de tarjeta|numero tarjeta|numero della carta|numero carta|kaartnummer|"
     u"numero do cartao|номер карты|カード番号|卡号|카드 번호|n tarjeta|num tarjeta|nro tarjeta|no tarjeta|n carte|num carte|"
     u"n carta|numer karty|kortnummer|numero di carta|numero di carta di credito|numero de la tarjeta|"
     u"numero de la tarjeta de credito|n de carte|n de carte bancaire|no de carte|kreditkarte nummer|卡號|卡号码|"
     u"numero de carte bancaire|numero de la carte bancaire|nr karty|number of card|number of your card|"
     u"creditcard account number|card account number|номер картки|kart numarası|kortin numero|cislo karty|"
     u"kartyaszam|numarul cardului|αριθμος καρτας|nomor kartu|^so the|رقم البطاقة|מספר כרטיס|หมายเลขบัตร|कार्ड नंबर"},
    {Job, kStrong,
     u"~job|work title|poste actuel|poste occupe|job title|occup|occupation|profession|beruf|berufsbezeichnung|"
     u"=position|position title|metier|profesion|=puesto|professione|beroep|profissao|ocupacion|fonction|funktion|"
     u"=cargo|職業|职业|직업|business title|ruolo"},
    {Other, kStrong,
     u"company|=firm|=firma|firmenname|=unternehmen|organisation|organization|organizacion|organizzazione|"
     u"institution|entreprise|societe|raison sociale|razon social|razao social|nome fantasia|nombre comercial|"
     u"empresa|azienda|ragione sociale|bedrijf|bedrijfsnaam|business name|school name|department|abteilung|会社|公司|회사|"
     u"компания|организация|会社名|部署名|部署"},
    {HouseNumber, kStrong,
     u"house number|house no|house nr|street number|street no|street nr|street num|house name or number|"
     u"house name number|house number or name|hausnummer|hausnr|=hnr|house num|building number|numero de rue|"
     u"numero de voie|numero civico|=civico|huisnummer|numero exterior|num exterior|numero ext|num ext|no ext|"
     u"num rue|n de rue|no de rue|numero de la rue|num voie|n de voie|num calle|numero de calle|nr domu|номер дома"},
    {Other, kStrong,
     u"street type|street dir|street prefix|street suffix|street direction|predirectional|postdirectional|"
     u"tipo de via|type de voie|type voie|tipo via|stair|=treppe|=puerta|=planta|=escalera|=portal"},
    {Address2, kStrong,
     u"address2|addr2|address line 2|address line two|addresstwo|second address|second line|secondary address|"
     u"addressextra|address additional|additional address|address continued|address contd|street2|street line 2|"
     u"street address 2|street address line 2|street address cont|strasse2|line 2|=apt|apartment|=suite|apt suite|"
     u"apt number|=unit|unit number|=flat|=building|adresszusatz|anschriftenzusatz|zusatz|complement|"
     u"complement d adresse|complemento|adresse 2|adresszeile 2|direccion 2|indirizzo 2|toevoeging|=piso|=floor|"
     u"appartement|apartamento|adres2|endereco2|квартира|建物名|番地以降|addr line 2|batiment|etage|hinterhaus|stockwerk|"
     u"bloque|地址2|주소2|住所2|linea 2|ligne d adresse 2|ligne 2|linha 2|riga 2|zeile 2|дом корпус"},
    {Address1, kStrong,
     u"address1|addr1|address line 1|address line one|addressone|address line|first line|street1|street line 1|"
     u"line 1|street|street address|street name|straße|strasse|straßenname|strassenname|=str|straße 1|"
     u"straße hausnummer|straße und hausnummer|straße nr|straße hausnr|strasse hausnr|strasse hausnummer|"
     u"street number and name|number and street|strasse und hausnummer|strasse nr|=rue|numero et rue|nom de rue|"
     u"nom de la rue|nom de la voie|nombre de la via|nombre de la calle|numero et nom de rue|numero et libelle|"
     u"=voie|adresse 1|adresszeile 1|=calle|=domicilio|direccion 1|=via|indirizzo 1|straat|straatnaam|logradouro|"
     u"endereco1|house name|building and street|flat house no|road|=ulica|улица|住所|地址|番地|주소|addr line 1|улица дом|"
     u"=gata|ulice|=rua|街道|gatuadress|katuosoite|lahiosoite|utca|strada|οδος|الشارع|רחוב|ถนน"},
    {Country, kStrong,
     u"country|countrycode|country name|country region|=land|=pays|=pais|paese|nazione|lander|страна|国家|国籍地|国名|=国|"
     u"국가|=kraj|國家"},
    {City, kStrong,
     u"city|town|city town|city name|=ort|=stadt|wohnort|ortschaft|ville|=commune|ciudad|localidad|poblacion|"
     u"municipio|=citta|comune|localita|localite|miejscowosc|^by|plaats|woonplaats|plaatsnaam|cidade|=gemeinde|"
     u"miasto|город|市区町村|城市|=市|도시|mesto|=sehir|kota|省市|市区|=stad|місто|kaupunki|postitoimipaikka|poststed|'sted|"
     u"'varos|oras|localitate|πολη|thanh pho|المدينة|עיר|เมือง|शहर|شهر"},
    {State, kStrong,
     u"state|prov|province|state province|provincia|bundesland|=kanton|=canton|departement|=estado|provincie|"
     u"provinz|=prefecture|都道府県|省份|область|省直辖市|州|регион|край|시도|^il|^lan|fylke|laani|megye|judet|νομος|provinsi|"
     u"'tinh|المحافظة|מחוז|จังหวัด|राज्य|استان|^도"},
    {Zip, kStrong,
     u"~zip|'zip 4|'zip plus 4|zip code|zippostal|postal|postal code|post code|=plz|postleitzahl|code postal|"
     u"codigo postal|codice postale|=cap|=cep|=cp|pin code|postnummer|=npa|индекс|郵便番号|邮编|邮政编码|우편번호|cod postal|"
     u"kod pocztowy|postnr|=psc|郵遞區號|郵便|поштовий індекс|posta kodu|postinumero|iranyitoszam|ταχυδρομικος κωδικας|"
     u"τ κ|kode pos|ma buu điện|الرمز البريدي|מיקוד|รหัสไปรษณีย์|पिन कोड|کد پستی|eircode"},
    {Bank, kStrong, u"bank|bank name|=banque|=banco|=banca|kreditinstitut|issuing bank|issuer"},
    {User, kStrong,
     u"username|userid|user login|login name|loginid|logon|benutzername|benutzerkennung|nutzername|anmeldename|"
     u"nom d utilisateur|utilisateur|identifiant|usuario|nombre de usuario|nome utente|=utente|gebruikersnaam|"
     u"nome de usuario|имя пользователя|логин|ユーザー名|用户名|아이디|screen name|penname|account name|username or email|"
     u"email or username|user or email|login or email|username email|=pseudo|pseudonyme"},
    {Other, kStrong,
     u"message|nachricht|kommentar|comment|comments|mensaje|messaggio|bericht|bemerkung|anmerkung|=notes|remarks|"
     u"subject|betreff|=sujet|asunto|oggetto|feedback|description|your review|question|enquiry|inquiry|anfrage|件名"},

    // Words that give way to those above.
    {Title, kWeak,
     u"title|salutation|anrede|civilite|honorific|tratamiento|titolo|aanhef|tratamento|name prefix|=prefix"},
    {HouseNumber, kWeak, u"=numero|^n|^nº|^no|^number|^num|^nummer|^nr"},
    {City, kWeak, u"suburb|locality"},
    {State, kWeak, u"=region|=county|administrative area|comunidad autonoma|=省|voivodeship|wojewodztwo|^zone"},
    {Address1, kWeak,
     u"addr|address|adresse|anschrift|postal address|adresse postale|postadresse|postanschrift|direccion postal|"
     u"direccion|indirizzo|adres|endereco|=morada|адрес|アドレス|adress|адреса|osoite|'cim|διευθυνση|alamat|địa chỉ|"
     u"العنوان|כתובת|ที่อยู่|पता|آدرس"},
    {Other, kWeak, u"display name|alias|=handle|=suffix"},
    {FullName, kWeak,
     u"name|ihr name|votre nom|tu nombre|su nombre|=nom|nombre|=nome|=naam|=navn|=namn|名前|お名前|이름|收货人|isim|nimi|nama|"
     u"الاسم|नाम"},
    {FirstName, kWeak, u"=first|firstid|=名|fname|^given"},
    {LastName, kWeak, u"=last|lastid|lname|^family"},
    {User, kWeak, u"user|login|nickname|=nick|user nick|ニックネーム|=acct|benutzer"},
    {CardCode, kWeak,
     u"validation|valid num|valid code|v num|v code|security code|security number|verification value|"
     u"verification number|verification code|prufnummer|prufziffer|sicherheitscode|code de securite|"
     u"codigo de seguridad|codice di sicurezza|codice sicurezza|veiligheidscode|codigo de seguranca|セキュリティコード|安全码|"
     u"sec code|cod seguridad|card sec code|보안 코드|код безопасности|код проверки|digit code|digits on the back|"
     u"digit security"},
    {CardNumber, kWeak, u"=pan|creditcard|=cc|kreditkarte|carte bancaire"},
    {Day, kWeak, u"=day|=dd|^tag|=jour|=dia|giorno|=dag|=日|=den"},
    {Month, kWeak, u"=month|=mm|=mon|=monat|=mois|=mes|mese|=maand|=month mm|=月|=mth|месяц"},
    {Year, kWeak, u"=year|=yyyy|=yy|=yr|=jahr|=annee|=ano|=anno|=jaar|=jjjj|=aaaa|=年|=год"},
    {Companion, kWeak,
     u"passenger|=member|passengers|traveler|travelers|traveller|travellers|=pax|guest|guests|participant|"
     u"participants|attendee|attendees|=adult|=adults|driver|drivers|applicant|applicants|teilnehmer|reisender|"
     u"reisende|mitreisender|passagier|passagiere|passager|passagers|voyageur|voyageurs|pasajero|pasajeros|reiziger|"
     u"reizigers|passageiro|members|people|personen|viajero|viajeros|passeggero|passeggeri"},
    {Sender, kWeak, u"sender|'your first|'your last|absender|'ihr vorname|expediteur|'votre prenom|remitente|mittente"},
    {Recipient, kWeak, u"recipient|=recip|receiver|empfanger|empfaenger|destinataire|destinatario"},
    {CardWord, kWeak,
     u"card|=credit|payment|karte|kreditkarten|=carte|tarjeta|=carta|cartao|カード|=debit|billing card|karten"},
};
// clang-format on

} // namespace

std::span<const FieldPhrases> fieldPhrases()
{
    return kPhrases;
}

QStringView ownedPhrases()
{
    return u"name|firstname|lastname|fullname|surname|familyname|givenname|city|town|citytown|state|stateprovince|"
           "zip|zipcode|postalcode|postcode|phone|phonenumber|telephonenumber|address|streetaddress|title|country|"
           "year|dateofbirth|birthdate|birthday|occupation|cardnumber|nickname|sex|gender";
}

QStringView ownWords()
{
    return u"a|an|the|your|my|our|enter|please|select|choose|is|what|and|or|of|to|in|for|with|current|legal|full|"
           "first|last|middle|given|family|complete|real|actual|valid|correct|exact|new|permanent|primary|secondary|"
           "main|preferred|best|other|second|alternate|alternative|additional|optional|required|home|house|work|"
           "business|office|personal|private|residence|residential|physical|mailing|mail|postal|post|billing|bill|"
           "invoice|invoicing|shipping|ship|delivery|deliver|service|contact|registered|day|daytime|evening|night|"
           "mobile|cell|land|line|local|uk|us|usa|street|city|town|state|province|county|region|zip|country|supply|"
           "user|customer|account|holder|owner|cardholder|buyer|purchaser|applicant|client|student|patient|donor|"
           "member|subscriber|participant|attendee|parent|candidate|sender|me|you|add|edit|update|confirm|verify|re|"
           "repeat|type|number|text|input|field|tel|sign|up|create|same|this|credit|debit|bank|payment|visa|"
           "mastercard|information|info|details|detail|data|form|profile|registration|register|login|subscribe|"
           "newsletter|label|below|here|step|section|taxpayer|employee|learner|renter|tenant|borrower|shopper|"
           "visitor|player|runner|registrant|author|payer|payor|cardmember|resident|volunteer|requester|requestor|"
           "delegate|investor|respondent|booker|organizer|administrator";
}

QStringView particleWords()
{
    return u"of|on|the|sur|sul|auf|der|des|vom|von|du|de|la|le|les|l|del|los|las|della|dell|di|do|da|van|het|your|my|"
           "our";
}

QStringView ownNouns()
{
    return u"you|service|entrega|credit|debit|credito|debito|paiement|pago|pagamento|reserva|reservation|commande|"
           "pedido|compte|cuenta|residenza|passport|file|badge|card|cardholder|applicant|passenger|contact|customer|"
           "guest|owner|account|residence|person|carte|tarjeta|carta|cartao|karte|titulaire|client|porteur|"
           "destinataire|demandeur|voyageur|passager|participant|patient|conducteur|souscripteur|donateur|assure|"
           "abonne|adherent|acheteur|livraison|facturation|domicile|contacto|titular|cliente|pasajero|solicitante|"
           "destinatario|comprador|paciente|conductor|donante|asegurado|alumno|envio|facturacion|residencia|"
           "titolare|karteninhabers|kontoinhabers|kunden|gastes|reisenden|antragstellers|empfangers|"
           "ansprechpartners|bestellers|teilnehmers|patienten|fahrers|versicherungsnehmers|mitglieds|spenders|"
           "spedizione|fatturazione|consegna|contatto|faturamento|cobranca|casa|trabajo|tomador|arrendatario|"
           "inquilino|viajero|usuario|afiliado|socio|interesado|locataire|utilisateur|membre|nutzers|mieters|"
           "inhabers|kaufers|contraente|assicurato|intestatario|richiedente|passeggero|acquirente|segurado|"
           "passageiro|kaarthouder|rekeninghouder|contactpersoon|aanvrager";
}
