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
     u"statement|estate|interstate|capacity|velocity|ethnicity|publicity|electricity|specificity|automobile|"
     u"mailing|iphone|microphone|today|yesterday|holiday|monday|sunday|filename|hostname|domainname|tournament|"
     u"provider|provided|provision|approve|improve|middlesex|sussex|essex|subtitle|useragent|postcard|hotel|"
     u"cardinal|discard|address book|zipper|landscape|nameplate|yearly|monthly|birthday card|phonetic|namespace|"
     u"rename|statistic|transparent|apparent|occupant|occupants|occupancy|no po box|no p o box|no post office"},
    // Whose name is the user's.
    {Trap, kStrong,
     u"'customer s|'holder s|'cardholder s|'card holder s|'account holder s|'buyer s|'purchaser s|'applicant s|'guest s|"
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
     u"coupon|promo code|promocode|promotion code|promotional code|=promo|voucher|discount code|gutschein|"
     u"gutscheincode|gift|rabattcode|code promo|codigo promocional|cupon|codice sconto|bon de reduction|"
     u"kortingscode|промокод|geschenk|cadeau|regalo|redeem"},
    {Never, kStrong,
     u"password|passwort|passwd|=pwd|passphrase|kennwort|mot de passe|=mdp|contrasena|senha|wachtwoord|пароль|"
     u"パスワード|密码|비밀번호|=otp|one time|onetime|onetimecode|sms code|smscode|verify code|login code|"
     u"two factor|twofactor|2fa|=mfa|totp|authenticator|=tan|pin code sms|einmalcode|código sms|=pass|=pw|pass1|"
     u"pass2|userpass|passcode|=psw"},
    {Never, kStrong,
     u"friend|freund|=ami|amigo|amico|recipient email|recipients email|recipient mail|recipient phone|"
     u"recipients phone|email recipient|email of recipient|emergency|notfallkontakt|spouse|ehepartner|conjoint|"
     u"conyuge|beneficiary|referrer|referral|referred|refer a|mother|maiden|father|child first|child last|"
     u"child name|childs|your child|kid name|guardian|coapplicant|co applicant|next of kin|recipient s mail|"
     u"receiver email|gift recipient|=to email|friends name|=parent1|parent 1|parent 2|"
     u"parent guardian|=tribute|honoree|honouree|memorial|in memory|in honor|"
     u"in honour|doctor|=gp|physician|pharmacy|guarantor|policy holder|policyholder|coborrower|co borrower|cosigner|"
     u"co signer|supervisor|representative|representante|representant|fundraiser|landlord|attorney|dependent|dependant|"
     u"erziehungsberechtigt|erziehungsberechtigten|tuteur legal|reference 1|reference 2|=ref1|=ref2|reference name|"
     u"=werber|=werbers|geworben von|empfehlung|parrain|parrainage|"
     u"padrino"},
    {Never, kStrong,
     u"=ssn|social security|=sin number|taxid|tax id|tax number|taxnumber|=tin|=vat|vatid|vat number|vat no|ust id|"
     u"ustid|steuernummer|=uid nr|siret|siren|=nif|=cif|=dni|=nie|=cpf|=cnpj|=rfc|codice fiscale|partita iva|=piva|"
     u"passport number|passportno|passport expiry|passport exp|driver license|drivers license|driving licence|"
     u"licence number|license number|=id number|national id|personalausweis|ausweisnummer|=iban|=bic|"
     u"swift code|routing number|sort code|bankleitzahl|=blz|kontonummer|numero de compte"},
    {Never, kStrong,
     u"birthplace|place of birth|birth place|city of birth|birth city|country of birth|birth country|town of birth|"
     u"state of birth|birth name|geburtsort|geburtsland|geburtsname|lieu de naissance|pays de naissance|"
     u"ville de naissance|nom de naissance|lieu naissance|pays naissance|ville naissance|nom naissance|"
     u"commune de naissance|commune naissance|departement de naissance|departement naissance|lugar de nacimiento|"
     u"lugar nacimiento|pais de nacimiento|pais nacimiento|ciudad de nacimiento|provincia de nacimiento|"
     u"luogo di nascita|luogo nascita|comune di nascita|comune nascita|provincia di nascita|provincia nascita|"
     u"geboorteplaats|"
     u"nationality|citizenship|nationalitat|staatsangehorigkeit|nationalite|nacionalidad|nazionalita|nationaliteit|"
     u"security question|security answer|secret question|secret answer|challenge|sicherheitsfrage|question secrete|"
     u"pregunta de seguridad|your answer"},

    // Parts of other things, said with the same words.
    {Other, kStrong,
     u"middle name|=middle|middlename|middle initial|=mi|=mname|initial|initials|zweiter vorname|deuxieme prenom|"
     u"segundo nombre|second prenom|segundo apellido|apellido2|apellido 2|apellido materno|secondo nome|"
     u"name suffix|namenszusatz|phonetic name|first name kana|last name kana|furigana|フリガナ|カナ|かな|ふりがな|"
     u"отчество|tussenvoegsel|patronymic|=former|formerly|=previous|=prev|"
     u"prior address|old address|other names|other first names|autres prenoms|otros nombres|"
     u"weitere vornamen|2 apellido|2º apellido|2o apellido|2do apellido|=ape2|'s name|'s first name|'s last name|"
     u"'s full name|'s surname|'s phone|'s email|'s e mail|'s address|'s zip|'s city|'s state|'s title|'s date|'ort der|'ort des|'datum der|'datum des|'name of|'name des|'name der|'nom du|'nom de la|"
     u"'nom de l|'nombre del|'nombre de la|'nome del|'nome della|'nome dell|'naam van"},
    {Other, kStrong,
     u"phone ext|phone extension|=ext|extension|durchwahl|=anexo|numero de poste|=interno tel|phone type|phonetype|"
     u"type of phone|phone carrier|phone model|telephone type|mobile carrier|phone verification"},
    {Other, kStrong,
     u"address type|addresstype|type of address|address name|addressname|address label|address nickname|"
     u"address title|address3|address 3|addressline3|address line 3|addr3|addr 3|address line three|"
     u"addresslinethree|street3|street address line 3|street line 3|line3|address4|address line 4|zip4|zip 4|zip plus 4|zipplus4|zip ext|zip extension|"
     u"plus4|post office box|post box|postbox|po box|pobox|postfach nr|postfach|boite postale|apartado|"
     u"urbanization|country id number|packstation|foreign|numero interior|num interior|numint|num int|"
     u"postcode lookup|address lookup|find your address|find address|address finder|address search|"
     u"huisnummer toevoeging|hnr toev|house number addition|hausnummerzusatz|hausnr zusatz|property zip|property city|"
     u"property postcode|property address|work address|desired position|position desired|position applied|position sought|wunschposition|poste souhaite|"
     u"puesto deseado|store city|store state|store zip|store address|years at|months at|time at|how long|ort datum|ort und datum|place and date|lieu et date|lugar y fecha|employer|"
     u"arbeitgeber|employeur|=empleador|werkgever|subdivision|cross street|nearest|landmark|doorcode|door code|"
     u"entry code|gate code|ip address|web address|wallet address|delivery instructions|instructions|neighborhood|"
     u"neighbourhood|bairro|colonia"},
    {Other, kStrong,
     u"passport|bank account|bankaccount|bank code|bankcode|bank number|bank branch|bank address|bank contact|bank manager|bank phone|bank city|bank id|"
     u"bank country|issue number|issueno|issue no|issue date|start date|startdate|valid from|start month|"
     u"start year|card issue|departure|depart|depdate|arrival|arrive|check in|checkin|check out|checkout date|"
     u"pick up|pickup|drop off|dropoff|return date|travel date|delivery date|delivery day|delivery time|"
     u"appointment|event date|from date|to date|date from|date to|start day|end date|end day|end month|end year|"
     u"graduation|abreise|anreise|hinfahrt|ruckfahrt|fecha de salida|fecha de llegada|date depart|date de depart|"
     u"date retour|move in|=moved|wedding|anniversary|airport|=origin|destination|city or airport|leaving from|going to|"
     u"flying from|flying to|flughafen|abflughafen|zielflughafen|aeropuerto|aeroport|aeroporto"},
    {Other, kStrong,
     u"membership|member id|memberid|member number|member no|loyalty|frequent flyer|frequent flier|bonus card|"
     u"bahncard|payback|customer number|customer id|customerid|customer no|kundennummer|numero client|order number|"
     u"orderid|order id|order no|bestellnummer|invoice|rechnungsnummer|reference number|reservation number|"
     u"booking number|confirmation number|case number|policy number|account number|accountnumber|account no|"
     u"accountno|accno|acct no|student id|employee id|employeeid|serial number|registration number|id card|idcard|"
     u"library card|store card|storecard|store charge|charge card|plus card|rewards|reward card|club card|clubcard|license plate|vin number|tracking number"},
    {Other, kStrong,
     u"quantity|=qty|amount|betrag|=menge|=anzahl|cantidad|quantite|montant|importe|quantita|importo|aantal|price|"
     u"preis|donation|income|salary|budget|adults|children|passengers|guests|rooms|room number|nights|=age|=alter|"
     u"height|weight|=size|colour|=color|parcelas|installment|instalment|installments|instalments|ratenzahlung|=raten|"
     u"cuotas|mensualidades"},
    {Other, kStrong,
     u"pet name|petname|project name|projectname|event name|eventname|product name|productname|team name|teamname|"
     u"store name|storename|shop name|shopname|shopurl|group name|groupname|list name|program name|class name|"
     u"course name|model name|brand name|device name|hotel name|club name|agency name|building name|property name|"
     u"venue name|restaurant name|page name|workspace|channel name|character name|nameserver|name of your|"
     u"name of the|name des vereins|vereinsname|projektname|produktname|name of event|name of school|"
     u"name of company|name of organization|nombre de la empresa|nombre de empresa|nom de l entreprise|"
     u"nom de la societe|nome azienda|campaign"},
    {Other, kStrong,
     u"website|homepage|=www|webseite|web site|site web|sitio web|=url|weburl|urlname|site name|sitename|blog|facebook|"
     u"twitter|linkedin|instagram|skype|=icq|=aim|whatsapp group|telegram"},
    {Other, kStrong,
     u"language|=sprache|langue|idioma|lingua|currency|wahrung|devise|moneda|time zone|timezone|zeitzone|"
     u"email format|email type|emailtype|email frequency|email preference|email opt in|emailoptin|email optin|"
     u"email password|hear about|how did you|referred by|industry|branche|secteur|education|school|university|"
     u"degree|marital|familienstand|religion|ethnic|=race|freeform|self describe|please specify|veteran|=hobby|interests|relationship"},

    // The record's own, in its order.
    {Sex, kStrong, u"~sex|gender|geschlecht|sexe|sexo|sesso|genere|geslacht|genero|=пол|性别|性別|성별"},
    {FullName, kStrong,
     u"full name|fullname|complete name|first and last name|first last name|first name last name|name and surname|"
     u"first name and last name|vor und nachname|vorname und nachname|vorname nachname|vollstandiger name|ihr name|"
     u"nom complet|nom et prenom|nom prenom|prenom et nom|votre nom|nombre completo|nombre y apellidos|"
     u"nombre y apellido|tu nombre|su nombre|nome completo|nome e cognome|volledige naam|nome e sobrenome|"
     u"vor zuname|vor und zuname|vor u nachname|vor u zuname|name vorname|name und vorname|nachname vorname|"
     u"nombre apellidos|nombre apellido|apellidos y nombre|imie i nazwisko|imie nazwisko|фио|полное имя|your name|contact name|contactname|ansprechpartner|氏名|フルネーム|姓名|성명"},
    {FirstName, kStrong,
     u"first name|firstname|=fname|forename|given name|givenname|vorname|vornamen|prenom|nombre de pila|"
     u"primer nombre|voornaam|primeiro nome|christian name|namefirst|name first|first nm|firstnm|firstn|=имя|"
     u"nombres|名字|=mei|name mei|full name first|fullnamefirst|fornamn|fornavn|=imie|jmeno|firstnames"},
    {LastName, kStrong,
     u"last name|lastname|=lname|surname|family name|familyname|nachname|votre nom de famille|familienname|"
     u"zuname|nom de famille|apellido|apellidos|primer apellido|cognome|achternaam|sobrenome|apelido|second name|"
     u"secondname|namelast|name last|last nm|lastnm|lastn|фамилия|=姓|姓氏|=성|=sei|name sei|full name last|"
     u"fullnamelast|efternamn|efternavn|etternavn|nazwisko|prijmeni|soyad|soyadi|nom famille|=ape1"},
    {FullName, kStrong,
     u"name on card|nameoncard|name on the card|name on credit card|card holder name|cardholder name|cardholder|"
     u"card holder|card name|ccname|cc name|cc holder|ccholder|cc owner|ccowner|card owner|cardowner|"
     u"card holders name|name as it appears|name as appears|credit card name|creditcardname|karteninhaber|inhaber|"
     u"name auf der karte|name auf karte|titulaire|nom sur la carte|titular|nombre en la tarjeta|"
     u"nombre del titular|titolare|intestatario|kaarthouder|naam op kaart|nome no cartao|имя на карте|"
     u"владелец карты|カード名義|владельца карты|имя владельца карты|имя владельца|имя держателя|"
     u"имя держателя карты|持卡人"},
    {Fax, kStrong, u"~fax|telefax|faxnumber|fax number|факс|ファックス|传真"},
    {PhoneCountry, kStrong,
     u"phone country|phone country code|phonecountrycode|phone code|phonecode|mobile country code|mobile code|"
     u"tel country code|country calling code|calling code|dial code|dialing code|dialcode|dialling code|isd code|"
     u"intl code|international code|landervorwahl|landesvorwahl|phone prefix country|indicatif|codigo de pais|"
     u"prefisso internazionale|country phone code|country dial|phone ccode|mobile country|mobilecountry|"
     u"tel country|phone nation"},
    {PhoneArea, kStrong,
     u"area code|areacode|phone area|phonearea|phone area code|telephone area|vorwahl|ortsvorwahl|codigo de area|"
     u"prefijo|std code|prefisso|=ddd|=lada|clave lada|netnummer|区号|市外局番|phone number area|phonenumberarea|phone a code"},
    {PhonePrefix, kStrong, u"phone prefix|phoneprefix|phone exchange|phoneexchange|tel prefix|市内局番"},
    {PhoneSuffix, kStrong, u"phone suffix|phonesuffix|tel suffix|phone line number|phone last four|phone last 4"},
    {Phone, kStrong,
     u"phon|phone|phone number|=tel|telno|tel no|telnr|tel nr|telnum|telephone|telefon|telefono|telefoon|telefone|"
     u"mobile|mobilnummer|mobiltelefon|=mobil|=handy|handynummer|rufnummer|cell phone|cellphone|=cell|cellular|"
     u"cellulare|celular|=movil|portable|=gsm|contact number|=contact no|daytime number|evening number|landline|telemovel|=mobiel|mobielnummer|"
     u"alternative number|whatsapp|телефон|電話|电话|手机|携帯|전화|휴대|mobilfunk|festnetz|=fon|=ph|=tlf|phone no|"
     u"contact phone|numero de contacto|puhelin|telefonnummer|=natel"},
    {BirthYear, kStrong,
     u"birth year|birthyear|year of birth|yob|byear|bday year|bday yyyy|bday yy|dob year|dobyear|dob yyyy|"
     u"geburtsjahr|annee de naissance|ano de nacimiento|ano nacimiento|anno di nascita|geboortejaar|birthday year"},
    {BirthMonth, kStrong,
     u"birth month|birthmonth|month of birth|bmonth|bday month|bday mm|dob month|dobmonth|dob mm|geburtsmonat|"
     u"mois de naissance|mes de nacimiento|mes nacimiento|mese di nascita|geboortemaand|birthday month"},
    {BirthDay, kStrong,
     u"day of birth|birthday day|bday day|bday dd|dob day|dobday|dob dd|jour de naissance|dia de nacimiento|"
     u"dia nacimiento|giorno di nascita|geboortedag|birth dd|birthdate day"},
    {BirthDate, kStrong,
     u"birth|birthday|birthdate|birth date|date of birth|dateofbirth|=dob|bday|geburtsdatum|geburtstag|geburt|"
     u"date de naissance|naissance|fecha de nacimiento|nacimiento|data di nascita|nascita|geboortedatum|geboorte|"
     u"data de nascimento|nascimento|дата рождения|生年月日|出生日期|생년월일|geb datum|gebdatum|=geb|fecha nac|"
     u"fechanac|fec nac|data urodzenia|fodelsedatum|fodselsdato|datum narozeni|dogum tarihi|syntymaaika"},
    {CardMonth, kStrong,
     u"exp month|expmonth|expir month|expire month|expires month|expiry month|expiration month|expmo|exp mo|exp mm|"
     u"expmm|card month|cardmonth|ccmonth|cc month|cc mm|ablaufmonat|verfallsmonat|gueltigmonat|gultig monat|mois expiration|"
     u"mois d expiration|mes de caducidad|mes vencimiento|mese scadenza|exp date month|exp date mm|expdatemonth|"
     u"expiration date month|exp m|expm|ccexpm|ccexpmonth|ccexp month|cc exp month|valid month|validmonth|"
     u"valid to month|valid until month|card exp month|cardexpmonth|mes expiracion|expiracion mes|expire mm"},
    {CardYear, kStrong,
     u"exp year|expyear|expir year|expire year|expires year|expiry year|expiration year|expyr|exp yr|exp yy|expyy|"
     u"exp yyyy|card year|cardyear|ccyear|cc year|cc yy|cc yr|ablaufjahr|verfallsjahr|gueltigjahr|gultig jahr|annee expiration|"
     u"annee d expiration|ano de caducidad|ano vencimiento|anno scadenza|exp date year|exp date yy|expdateyear|"
     u"expiration date year|exp y|expy|ccexpy|ccexpyear|ccexp year|cc exp year|valid year|validyear|valid to year|"
     u"valid until year|cardexpyear|ano expiracion|expiracion ano|expire yy"},
    {CardDate, kStrong,
     u"exp|exp date|expdate|expiration|expiration date|expiry|expiry date|expires|expire|expirydate|expirationdate|"
     u"valid thru|validthru|valid through|valid until|valid to|good thru|gultig bis|gultigkeit|gueltig bis|"
     u"ablaufdatum|verfallsdatum|verfallsdatum karte|caducidad|vencimiento|vence|date d expiration|expire fin|"
     u"validite|valable jusqu|scadenza|vervaldatum|geldig tot|validade|срок действия|有効期限|有效期|유효기간|"
     u"ccexp|cc exp|card exp|cardexp|expiracion|fecha exp|scad|到期日|到期|만료일|만료|data waznosci|waznosc|"
     u"geldig tot en met|gueltigkeit|срок"},
    {Mail, kStrong,
     u"email|mail|email address|emailaddress|mailadresse|emailadresse|emailid|email id|mail address|"
     u"adresse electronique|adresse mail|adresse e mail|courriel|correo electronico|correo|=correio|"
     u"posta elettronica|почта|メール|邮箱|邮件|電子郵件|이메일|메일|epost|e post|eposta|e posta"},
    {CardType, kStrong,
     u"cardtyp|card type|card typ|cctype|cc type|credit card type|card brand|cardbrand|card kind|type of card|"
     u"kartentyp|kartenart|kreditkartentyp|type de carte|tipo de tarjeta|tipo tarjeta|tipo di carta|tipo carta|"
     u"tipo de cartao|creditcard type|カード種類|カード会社"},
    {CardCode, kStrong,
     u"=cvv|=cvc|=csc|=cvn|=ccv|=cid|=cv2|cvv2|cvc2|cvv number|cvvnumber|cvvcode|cvccode|=cvd|=cvs|cardcvv|cardcvc|"
     u"cccvv|cccvc|ccvv|ccid|cccsc|creditcardcvv|card code|cardcode|card verification|cardverification|"
     u"card security|cardsecurity|card id number|kartenprufnummer|kartenprufziffer|cryptogramme"},
    {CardNumber, kStrong,
     u"card number|cardnumber|cardnum|card num|card no|cardno|card nbr|card nr|cardnr|credit num|creditnum|"
     u"credit no|creditno|cc num|ccnum|cc number|ccnumber|cc no|ccno|cc nr|ccnr|number on card|credit card number|"
     u"creditcardnumber|debit card number|card account|cardaccount|cc account|kartennummer|kreditkartennummer|"
     u"kreditkarten nr|numero de carte|numero de votre carte|numero de la carte|carte num|=carte no|tarjeta num|karte nr|karten nr|numero de tarjeta|numero tarjeta|numero della carta|"
     u"numero carta|kaartnummer|numero do cartao|номер карты|カード番号|卡号|카드 번호|카드번호|n tarjeta|"
     u"num tarjeta|numtarjeta|nro tarjeta|no tarjeta|n carte|num carte|numcarte|n carta|numer karty|kortnummer|"
     u"numero di carta|numero di carta di credito|numero de la tarjeta|numero de la tarjeta de credito|n de carte|"
     u"n de carte bancaire|no de carte|kreditkarte nummer|kreditkartennr|卡號|卡号码|numero de carte bancaire|"
     u"numero de la carte bancaire|nr karty|number of card|number of your card|creditcard account number|"
     u"creditcardaccountnumber|card account number|cardaccountnumber"},
    {Job, kStrong,
     u"~job|work title|poste actuel|poste occupe|job title|jobtitle|occup|occupation|profession|beruf|berufsbezeichnung|=position|position title|metier|"
     u"profesion|=puesto|professione|beroep|profissao|ocupacion|fonction|funktion|=cargo|職業|职业|직업"},
    {Other, kStrong,
     u"company|=firm|=firma|firmenname|=unternehmen|organisation|organization|organizacion|organizzazione|"
     u"institution|entreprise|societe|raison sociale|empresa|azienda|ragione sociale|bedrijf|"
     u"bedrijfsnaam|business name|businessname|school name|department|abteilung|会社|公司|회사|компания|"
     u"организация|会社名|部署名|部署"},
    {HouseNumber, kStrong,
     u"house number|housenumber|house no|houseno|house nr|street number|streetnumber|street no|streetno|street nr|"
     u"streetnr|street num|streetnum|house name or number|house name number|house number or name|hausnummer|hausnr|=hnr|house num|housenum|building number|numero de rue|"
     u"numero de voie|numero civico|=civico|huisnummer|numero exterior|num exterior|"
     u"numero ext|num ext|numext|no ext|num rue|numrue|n de rue|no de rue|numero de la rue|num voie|numvoie|n de voie|"
     u"num calle|numero de calle|номер дома"},
    {Other, kStrong,
     u"street type|street prefix|street suffix|street direction|predirectional|postdirectional|tipo de via|"
     u"type de voie|tipo via|stair|=treppe"},
    {Address2, kStrong,
     u"address2|address 2|address_2|addr2|addr 2|address line 2|addressline2|address line two|addresslinetwo|"
     u"addresstwo|address two|second address|second line|secondary address|addressextra|address extra|"
     u"address additional|additional address|address continued|address contd|street2|street 2|street line 2|"
     u"street address 2|street address line 2|street address cont|streetline2|strasse2|strasse 2|=line2|line 2|=apt|apartment|=suite|apt suite|apt number|aptnumber|=unit|"
     u"unit number|unitnumber|=flat|=building|adresszusatz|adress zusatz|anschriftenzusatz|zusatz|complement|"
     u"complement d adresse|complemento|adresse 2|adresse2|adresszeile 2|direccion 2|direccion2|=portal|"
     u"indirizzo 2|indirizzo2|toevoeging|=piso|=puerta|=planta|=escalera|=floor|appartement|apartamento|adres2|"
     u"endereco2|квартира|建物名|番地以降|addr line 2|addrline2|batiment|=etage|hinterhaus|stockwerk|etage|bloque|"
     u"地址2|주소2|住所2|address line2|linea 2|ligne d adresse 2|ligne 2|linha 2|riga 2|zeile 2|дом корпус"},
    {Address1, kStrong,
     u"address1|address 1|address_1|addr1|addr 1|address line 1|addressline1|address line one|addresslineone|"
     u"addressone|address one|address line|addressline|first line|street1|street 1|street line 1|streetline1|"
     u"=line1|line 1|street|street address|streetaddress|street name|streetname|straße|strasse|straßenname|"
     u"strassenname|=str|straße 1|straße hausnummer|straße und hausnummer|straße nr|straße hausnr|straße haus nr|strasse hausnr|"
     u"strasse hausnummer|street number and name|number and street|"
     u"strasse und hausnummer|strasse nr|=rue|numero et rue|nom de rue|nom de la rue|nom de la voie|nombre de la via|nombre de la calle|numero et nom de rue|numero et libelle|=voie|adresse 1|"
     u"adresse1|adresszeile 1|=calle|=domicilio|direccion 1|direccion1|=via|indirizzo 1|indirizzo1|straat|"
     u"straatnaam|logradouro|endereco1|house name|building and street|flat house no|road|=ulica|улица|住所|地址|番地|주소|addr line 1|addrline1|"
     u"улица дом|=gata|ulice|=rua|街道|gatuadress"},
    {Country, kStrong,
     u"country|countrycode|country code|country name|country region|=land|=pays|=pais|paese|nazione|lander|страна|"
     u"国家|国籍地|国名|=国|국가|=kraj|國家"},
    {City, kStrong,
     u"city|town|city town|city name|cityname|=ort|=stadt|wohnort|ortschaft|ville|=commune|ciudad|localidad|"
     u"poblacion|municipio|=citta|comune|localita|localite|miejscowosc|^by|plaats|woonplaats|plaatsnaam|cidade|locality|=gemeinde|miasto|"
     u"город|市区町村|城市|=市|도시|mesto|=sehir|kota|省市|市区|=stad"},
    {State, kStrong,
     u"state|prov|province|state province|stateprovince|provincia|bundesland|=kanton|=canton|departement|=estado|"
     u"provincie|provinz|=prefecture|都道府県|省份|область|省直辖市|州|регион|=область|край|시도"},
    {Zip, kStrong,
     u"~zip|zip code|zipcode|zippostal|postal|postal code|postalcode|post code|postcode|=plz|postleitzahl|"
     u"code postal|codepostal|codigo postal|codigopostal|codice postale|=cap|=cep|=cp|pin code|pincode|postnummer|"
     u"=npa|индекс|郵便番号|邮编|邮政编码|우편번호|cod postal|codpostal|kod pocztowy|postnr|=psc|post nr|郵遞區號|郵便"},
    {Bank, kStrong, u"bank|bank name|bankname|=banque|=banco|=banca|kreditinstitut|issuing bank|issuer"},
    {User, kStrong,
     u"username|user name|userid|user id|user login|userlogin|login name|loginname|loginid|login id|logon|"
     u"benutzername|benutzerkennung|nutzername|anmeldename|nom d utilisateur|utilisateur|identifiant|usuario|"
     u"nombre de usuario|nome utente|=utente|gebruikersnaam|nome de usuario|имя пользователя|логин|ユーザー名|"
     u"用户名|아이디|screen name|screenname|penname|pen name|account name|accountname|username or email|"
     u"usernameoremail|email or username|emailorusername|user or email|useroremail|login or email|loginoremail|"
     u"username email|=pseudo|pseudonyme|benutzer name"},
    {Other, kStrong,
     u"message|nachricht|kommentar|comment|comments|mensaje|messaggio|bericht|bemerkung|anmerkung|=notes|remarks|"
     u"subject|betreff|=sujet|asunto|oggetto|feedback|description|your review|question|enquiry|inquiry|anfrage|件名"},

    // Words that give way to those above.
    {Title, kWeak,
     u"title|salutation|anrede|civilite|honorific|tratamiento|titolo|aanhef|tratamento|name prefix|=prefix"},
    {HouseNumber, kWeak, u"=numero|^n|^nº|^no|^number|^num|^nummer|=nr"},
    {City, kWeak, u"suburb"},
    {State, kWeak,
     u"=region|=county|administrative area|comunidad autonoma|=zone|=省|voivodeship|wojewodztwo"},
    {Address1, kWeak,
     u"addr|address|adresse|anschrift|postal address|adresse postale|postadresse|postanschrift|direccion postal|"
     u"direccion|indirizzo|adres|endereco|=morada|адрес|アドレス|adress"},
    {Other, kWeak, u"display name|displayname|alias|=handle|=suffix"},
    {FullName, kWeak, u"name|=nom|nombre|=nome|=naam|=navn|=namn|nom du titulaire|nom du contact|nom du client|nom du porteur|"
     u"nom du destinataire|nom du demandeur|nom du voyageur|nom du passager|nom du participant|nom du patient|"
     u"nom de l acheteur|nombre del titular|nombre del contacto|nombre del cliente|nombre del pasajero|"
     u"nombre del solicitante|nombre del destinatario|nombre del comprador|nome del titolare|nome del cliente|"
     u"name des karteninhabers|name des kontoinhabers|name des kunden|name des gastes|name des reisenden|"
     u"name des antragstellers|name des empfangers|name des ansprechpartners|name des bestellers|name des teilnehmers|"
     u"name of cardholder|name of card holder|name of applicant|name of passenger|name of contact|name of customer|"
     u"name of guest|name of owner|name of account holder|名前|お名前|이름|收货人"},
    {FirstName, kWeak, u"=first|firstid|=名|fname"},
    {LastName, kWeak, u"=last|lastid|lname"},
    {User, kWeak, u"user|login|nickname|=nick|user nick|ニックネーム|=acct|benutzer"},
    {CardCode, kWeak,
     u"validation|valid num|valid code|validnum|validcode|v num|v code|vnum|vcode|security code|securitycode|"
     u"security number|verification value|verification number|verification code|prufnummer|prufziffer|"
     u"sicherheitscode|code de securite|codigo de seguridad|codice di sicurezza|codice sicurezza|veiligheidscode|"
     u"codigo de seguranca|セキュリティコード|安全码|sec code|seccode|cod seguridad|card sec code|보안 코드|"
     u"код безопасности|код проверки|digit code|digits on the back|digit security"},
    {CardNumber, kWeak, u"=pan|creditcard|=cc|kreditkarte|carte bancaire"},
    {Day, kWeak, u"=day|=dd|=tag|=jour|=dia|giorno|=dag|=日|=den"},
    {Month, kWeak, u"=month|=mm|=mon|=monat|=mois|=mes|mese|=maand|=month mm|=月|=mth|месяц"},
    {Year, kWeak, u"=year|=yyyy|=yy|=yr|=jahr|=annee|=ano|=anno|=jaar|=jjjj|=aaaa|=年|=год"},
    {Companion, kWeak,
     u"passenger|passengers|traveler|travelers|traveller|travellers|=pax|guest|guests|participant|participants|attendee|"
     u"attendees|=adult|=adults|driver|drivers|applicant|applicants|teilnehmer|reisender|reisende|mitreisender|"
     u"passagier|passagiere|passager|passagers|voyageur|voyageurs|pasajero|pasajeros|members|people|personen|viajero|viajeros|passeggero|"
     u"passeggeri"},
    {Sender, kWeak,
     u"sender|'your first|'your last|'your name|'your full|absender|'ihr vorname|'ihr name|expediteur|'votre nom|"
     u"'votre prenom|remitente|'tu nombre|mittente"},
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
