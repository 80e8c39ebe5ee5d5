#include "forms/FieldPhrases.h"

namespace {

using enum FieldKind;

constexpr bool kStrong = false;
constexpr bool kWeak = true;

constexpr FieldPhrases kPhrases[] = {
    // Words that hold others by chance.
    {Trap, kStrong,
     u"statement|estate|interstate|capacity|velocity|ethnicity|publicity|electricity|specificity|automobile|mailing|"
     u"iphone|microphone|today|yesterday|holiday|monday|sunday|filename|hostname|domainname|tournament|provider|"
     u"provided|provision|approve|improve|middlesex|sussex|essex|subtitle|useragent|postcard|hotel|cardinal|discard|"
     u"address book|zipper|landscape|nameplate|"
     u"yearly|monthly|birthday card|phonetic|namespace|rename|statistic"},

    // What is nobody's business, or not the user's own.
    {Never, kStrong,
     u"search|=query|keyword|suche|suchbegriff|=such|recherche|rechercher|buscar|=busca|busqueda|=cerca|ricerca|zoeken|"
     u"pesquisa|pesquisar|поиск|検索|搜索|검색"},
    {Never, kStrong,
     u"captcha|robot|are you human|characters you see|characters shown|image code|code in the image|spam|honeypot|"
     u"leave this|leave blank|leave empty|do not fill|leer lassen|fake|ne pas remplir|no rellenar"},
    {Never, kStrong,
     u"coupon|promo code|promocode|promotion code|promotional code|=promo|voucher|discount "
     u"code|gutschein|gutscheincode|"
     u"gift|rabattcode|code promo|codigo promocional|cupon|codice sconto|bon de reduction|kortingscode|промокод|"
     u"geschenk|cadeau|regalo|redeem"},
    {Never, kStrong,
     u"password|passwort|passwd|=pwd|passphrase|kennwort|mot de "
     u"passe|=mdp|contrasena|senha|wachtwoord|пароль|パスワード|"
     u"密码|비밀번호|=otp|one time|onetime|onetimecode|sms code|smscode|verify code|login code|two factor|twofactor|"
     u"2fa|=mfa|totp|authenticator|=tan|pin code sms|einmalcode|código sms"},
    {Never, kStrong,
     u"friend|freund|=ami|amigo|amico|recipient email|recipients email|recipient mail|recipient phone|recipients phone|"
     u"email recipient|email of recipient|emergency|notfallkontakt|spouse|ehepartner|conjoint|conyuge|beneficiary|"
     u"referrer|referral|referred|refer a|mother|maiden|father|child first|child last|child name|childs|your child|kid "
     u"name|"
     u"guardian|coapplicant|co applicant|next of kin"},
    {Never, kStrong,
     u"=ssn|social security|=sin number|taxid|tax id|tax number|taxnumber|=tin|=vat|vatid|vat number|vat no|ust "
     u"id|ustid|"
     u"steuernummer|=uid nr|siret|siren|=nif|=cif|=dni|=nie|=cpf|=cnpj|=rfc|codice fiscale|partita iva|=piva|"
     u"passport number|passportno|passport expiry|passport exp|driver license|drivers license|driving licence|"
     u"licence number|license number|id number|idnumber|national id|personalausweis|ausweisnummer|=iban|=bic|"
     u"swift code|routing number|sort code|bankleitzahl|=blz|kontonummer|numero de compte"},
    {Never, kStrong,
     u"birthplace|place of birth|birth place|city of birth|birth city|country of birth|birth country|town of birth|"
     u"state of birth|birth name|geburtsort|geburtsland|geburtsname|lieu de naissance|pays de naissance|"
     u"ville de naissance|nom de naissance|lugar de nacimiento|pais de nacimiento|luogo di nascita|geboorteplaats|"
     u"nationality|citizenship|nationalitat|staatsangehorigkeit|nationalite|nacionalidad|nazionalita|nationaliteit|"
     u"security question|security answer|secret question|secret answer|challenge|sicherheitsfrage|"
     u"question secrete|pregunta de seguridad|your answer"},

    // Parts of other things, said with the same words.
    {Other, kStrong,
     u"middle name|=middle|middlename|middle initial|=mi|=mname|initial|initials|zweiter vorname|deuxieme prenom|"
     u"segundo nombre|second prenom|segundo apellido|apellido2|apellido 2|apellido materno|secondo nome|"
     u"name suffix|=suffix|namenszusatz|phonetic name|first name kana|last name "
     u"kana|furigana|フリガナ|カナ|かな|ふりがな"},
    {Other, kStrong,
     u"phone ext|phone extension|=ext|extension|durchwahl|=anexo|=poste|=interno tel|phone type|phonetype|type of "
     u"phone|"
     u"phone carrier|phone model|telephone type|mobile carrier|phone verification"},
    {Other, kStrong,
     u"address type|addresstype|type of address|address name|addressname|address label|address nickname|address title|"
     u"address3|address 3|addressline3|address line 3|addr3|addr 3|address line three|addresslinethree|street3|line3|"
     u"address4|address line 4|zip4|zip 4|zip plus 4|zipplus4|zip ext|zip extension|plus4|"
     u"post office box|post box|postbox|po box|pobox|postfach nr|postfach|boite postale|apartado|urbanization|"
     u"state id|country id number|subdivision|cross street|nearest|landmark|doorcode|door code|entry code|gate code|"
     u"ip address|web address|wallet address|delivery "
     u"instructions|instructions|neighborhood|neighbourhood|bairro|colonia"},
    {Other, kStrong,
     u"passport|bank account|bankaccount|bank code|bankcode|bank number|bank branch|bank address|bank id|bank country|"
     u"issue number|issueno|issue no|issue date|start date|startdate|valid from|start month|start year|card issue|"
     u"departure|depart|depdate|arrival|arrive|check in|checkin|check out|checkout date|pick up|pickup|drop off|"
     u"dropoff|return date|travel date|delivery date|delivery day|delivery time|appointment|event date|from date|"
     u"to date|date from|date to|start day|end date|end day|end month|end year|graduation|abreise|anreise|hinfahrt|"
     u"ruckfahrt|fecha de salida|fecha de llegada|date depart|date de depart|date retour|move in|wedding|anniversary"},
    {Other, kStrong,
     u"membership|member id|memberid|member number|member no|loyalty|frequent flyer|frequent flier|bonus card|"
     u"bahncard|payback|customer number|customer id|customerid|customer no|kundennummer|numero client|order number|"
     u"orderid|order id|order no|bestellnummer|invoice|rechnungsnummer|reference number|reservation number|booking "
     u"number|"
     u"confirmation number|case number|policy number|account number|accountnumber|account no|accountno|accno|acct no|"
     u"student id|employee id|employeeid|serial number|registration number|id card|idcard|library card|plus card|"
     u"rewards|reward card|club card|clubcard|license plate|vin number|tracking number"},
    {Other, kStrong,
     u"quantity|=qty|amount|betrag|=menge|=anzahl|cantidad|quantite|montant|importe|quantita|importo|aantal|price|"
     u"preis|"
     u"donation|income|salary|budget|adults|children|passengers|guests|rooms|room number|nights|"
     u"=age|=alter|height|weight|=size|colour|=color"},
    {Other, kStrong,
     u"website|homepage|webseite|web site|site web|sitio web|=url|weburl|urlname|site name|sitename|blog|"
     u"facebook|twitter|linkedin|instagram|skype|=icq|=aim|whatsapp group|telegram"},
    {Other, kStrong,
     u"language|=sprache|langue|idioma|lingua|currency|wahrung|devise|moneda|time zone|timezone|zeitzone|"
     u"email format|email type|emailtype|email frequency|email preference|email opt in|emailoptin|email optin|"
     u"email password|hear about|how did you|referred by|industry|branche|secteur|education|school|university|degree|"
     u"marital|familienstand|religion|ethnic|=race|veteran|=hobby|interests|relationship"},

    // The record's own, in its order.
    {Sex, kStrong, u"~sex|gender|geschlecht|sexe|sexo|sesso|genere|geslacht|genero|=пол|性别|性別|성별"},
    {FullName, kStrong,
     u"full name|fullname|complete name|first and last name|first last name|first name last name|name and surname|"
     u"first name and last name|vor und nachname|vorname und nachname|vorname nachname|vollstandiger name|"
     u"ihr name|nom complet|nom et prenom|nom prenom|prenom et nom|votre nom|nombre completo|nombre y apellidos|"
     u"nombre y apellido|tu nombre|su nombre|nome completo|nome e cognome|volledige naam|nome e sobrenome|"
     u"vor zuname|фио|полное имя|your name|contact name|contactname|ansprechpartner|氏名|フルネーム|姓名|성명"},
    {FirstName, kStrong,
     u"first name|firstname|=fname|f name|forename|given name|givenname|vorname|vornamen|prenom|nombre de pila|"
     u"primer nombre|voornaam|primeiro nome|christian name|namefirst|name first|first nm|firstnm|firstn|=имя|"
     u"nombres|=名|名字|=mei|name mei|이름"},
    {LastName, kStrong,
     u"last name|lastname|=lname|l name|surname|family name|familyname|nachname|votre nom de "
     u"famille|familienname|zuname|nom de famille|"
     u"apellido|apellidos|primer apellido|cognome|achternaam|sobrenome|apelido|second name|secondname|namelast|name "
     u"last|"
     u"last nm|lastnm|lastn|фамилия|=姓|姓氏|=성|=sei|name sei"},
    {FullName, kStrong,
     u"name on card|nameoncard|name on the card|name on credit card|card holder name|cardholder name|cardholder|"
     u"card holder|card name|ccname|cc name|cc holder|ccholder|cc owner|ccowner|card owner|cardowner|card holders name|"
     u"name as it appears|name as appears|credit card name|creditcardname|karteninhaber|inhaber|name auf der karte|"
     u"name auf karte|titulaire|nom sur la carte|titular|nombre en la tarjeta|nombre del titular|titolare|"
     u"intestatario|kaarthouder|naam op kaart|nome no cartao|имя на карте|владелец карты|カード名義"},
    {Fax, kStrong, u"~fax|telefax|faxnumber|fax number|факс|ファックス|传真"},
    {PhoneCountry, kStrong,
     u"phone country|phone country code|phonecountrycode|phone code|phonecode|mobile country code|mobile code|tel "
     u"country code|"
     u"country calling code|calling code|dial code|dialing code|dialcode|dialling code|isd code|intl code|"
     u"international code|landervorwahl|landesvorwahl|phone prefix country|indicatif|codigo de pais|prefisso "
     u"internazionale|"
     u"country phone code|country dial|phone ccode"},
    {PhoneArea, kStrong,
     u"area code|areacode|phone area|phonearea|phone area code|telephone area|vorwahl|ortsvorwahl|codigo de area|"
     u"prefijo|std code|prefisso|=ddd|netnummer|区号|市外局番"},
    {PhonePrefix, kStrong, u"phone prefix|phoneprefix|phone exchange|phoneexchange|tel prefix|市内局番"},
    {PhoneSuffix, kStrong, u"phone suffix|phonesuffix|tel suffix|phone line number|phone last four|phone last 4"},
    {Phone, kStrong,
     u"phon|phone|phone number|=tel|telno|tel no|telnr|tel nr|telnum|telephone|telefon|telefono|telefoon|telefone|"
     u"mobile|mobilnummer|mobiltelefon|=mobil|=handy|handynummer|rufnummer|cell phone|cellphone|=cell|cellular|"
     u"cellulare|celular|=movil|portable|=gsm|contact number|contact no|daytime number|evening number|"
     u"alternative number|whatsapp|телефон|電話|电话|手机|携帯|전화|휴대"},
    {BirthDate, kStrong,
     u"birth|birthday|birthdate|birth date|date of birth|dateofbirth|=dob|bday|geburtsdatum|geburtstag|geburt|"
     u"date de naissance|naissance|fecha de nacimiento|nacimiento|data di nascita|nascita|geboortedatum|geboorte|"
     u"data de nascimento|nascimento|дата рождения|生年月日|出生日期|생년월일"},
    {CardMonth, kStrong,
     u"exp month|expmonth|expir month|expire month|expires month|expiry month|expiration month|expmo|exp mo|exp mm|"
     u"expmm|card month|cardmonth|ccmonth|cc month|cc mm|ablaufmonat|verfallsmonat|mois expiration|mois d expiration|"
     u"mes de caducidad|mes vencimiento|mese scadenza|exp date month|exp date mm|expdatemonth|expiration date month"},
    {CardYear, kStrong,
     u"exp year|expyear|expir year|expire year|expires year|expiry year|expiration year|expyr|exp yr|exp yy|expyy|"
     u"exp yyyy|card year|cardyear|ccyear|cc year|cc yy|cc yr|ablaufjahr|verfallsjahr|annee expiration|annee d "
     u"expiration|"
     u"ano de caducidad|ano vencimiento|anno scadenza|exp date year|exp date yy|expdateyear|expiration date year"},
    {CardDate, kStrong,
     u"exp|exp date|expdate|expiration|expiration date|expiry|expiry date|expires|expire|expirydate|expirationdate|"
     u"valid thru|validthru|valid through|valid until|valid to|good thru|gultig bis|gultigkeit|gueltig bis|ablaufdatum|"
     u"verfallsdatum|verfallsdatum karte|caducidad|vencimiento|vence|date d expiration|expire fin|validite|"
     u"valable jusqu|scadenza|vervaldatum|geldig tot|validade|срок действия|有効期限|有效期|유효기간"},
    {Mail, kStrong,
     u"email|mail|email address|emailaddress|mailadresse|emailadresse|emailid|email id|mail address|adresse "
     u"electronique|adresse mail|adresse e mail|courriel|"
     u"correo electronico|correo|=correio|posta elettronica|почта|メール|邮箱|邮件|電子郵件|이메일|메일"},
    {CardType, kStrong,
     u"cardtyp|card type|card typ|cctype|cc type|credit card type|card brand|cardbrand|card kind|type of card|"
     u"kartentyp|kartenart|kreditkartentyp|type de carte|tipo de tarjeta|tipo tarjeta|tipo di carta|tipo carta|"
     u"tipo de cartao|creditcard type|カード種類|カード会社"},
    {CardCode, kStrong,
     u"=cvv|=cvc|=csc|=cvn|=ccv|=cid|cvv2|cvc2|cvv "
     u"number|cvvnumber|cvvcode|cvccode|=cvd|=cvs|cardcvv|cardcvc|cccvv|cccvc|"
     u"ccvv|ccid|cccsc|creditcardcvv|card code|cardcode|card verification|cardverification|card security|cardsecurity|"
     u"card id number|kartenprufnummer|kartenprufziffer|cryptogramme"},
    {CardNumber, kStrong,
     u"card number|cardnumber|cardnum|card num|card no|cardno|card nbr|card nr|cardnr|credit num|creditnum|"
     u"credit no|creditno|cc num|ccnum|cc number|ccnumber|cc no|ccno|cc nr|ccnr|number on card|"
     u"credit card number|creditcardnumber|debit card number|card account|cardaccount|cc account|=pan|"
     u"kartennummer|kreditkartennummer|kreditkarten nr|numero de carte|numero de la carte|numero de tarjeta|"
     u"numero tarjeta|numero della carta|numero carta|kaartnummer|numero do cartao|номер карты|カード番号|卡号|카드 "
     u"번호|카드번호"},
    {Job, kStrong,
     u"~job|job title|jobtitle|occup|occupation|profession|beruf|berufsbezeichnung|=position|position title|metier|"
     u"profesion|=puesto|professione|beroep|profissao|ocupacion|fonction|funktion|=cargo|職業|职业|직업"},
    {Other, kStrong,
     u"company|=firm|=firma|firmenname|=unternehmen|organisation|organization|organizacion|organizzazione|institution|"
     u"employer|arbeitgeber|entreprise|societe|raison sociale|empresa|azienda|ragione sociale|bedrijf|bedrijfsnaam|"
     u"business name|businessname|school name|department|abteilung|会社|公司|회사|компания|организация"},
    {HouseNumber, kStrong,
     u"house number|housenumber|house no|houseno|house nr|street number|streetnumber|street no|streetno|street "
     u"nr|streetnr|"
     u"street num|streetnum|hausnummer|hausnr|=hnr|house num|housenum|building number|numero de rue|numero de voie|"
     u"numero civico|=civico|huisnummer|numero exterior|=nr|номер дома"},
    {Other, kStrong,
     u"street type|street prefix|street suffix|street direction|predirectional|postdirectional|tipo de via|type de "
     u"voie|"
     u"tipo via|stair|=treppe"},
    {Address2, kStrong,
     u"address2|address 2|address_2|addr2|addr 2|address line 2|addressline2|address line "
     u"two|addresslinetwo|addresstwo|"
     u"address two|second address|second line|secondary address|addressextra|address extra|address additional|"
     u"additional address|address continued|address contd|street2|street 2|street line 2|streetline2|strasse2|"
     u"strasse 2|=line2|line 2|=apt|apartment|=suite|apt suite|apt number|aptnumber|=unit|unit number|unitnumber|"
     u"=flat|=building|adresszusatz|adress zusatz|anschriftenzusatz|zusatz|complement|complement d adresse|"
     u"complemento|adresse 2|adresse2|adresszeile 2|direccion 2|direccion2|=portal|indirizzo 2|indirizzo2|toevoeging|"
     u"=piso|=puerta|=planta|=escalera|=floor|appartement|apartamento|adres2|endereco2|квартира|建物名|番地以降"},
    {Address1, kStrong,
     u"address1|address 1|address_1|addr1|addr 1|address line 1|addressline1|address line "
     u"one|addresslineone|addressone|"
     u"address one|address line|addressline|first line|street1|street 1|street line 1|streetline1|=line1|line 1|street|"
     u"street address|streetaddress|street name|streetname|straße|strasse|straßenname|strassenname|=str|straße 1|"
     u"straße hausnummer|straße und hausnummer|straße nr|strasse hausnummer|strasse und hausnummer|strasse nr|"
     u"=rue|numero et rue|numero et nom de rue|numero et libelle|=voie|adresse 1|adresse1|adresszeile 1|"
     u"=calle|=domicilio|direccion 1|direccion1|=via|indirizzo 1|indirizzo1|straat|straatnaam|logradouro|endereco1|"
     u"house name|road|=ulica|улица|住所|地址|番地|주소"},
    {Country, kStrong,
     u"country|countrycode|country code|country name|country region|=land|=pays|=pais|paese|nazione|lander|страна|"
     u"国家|国籍地|国名|=国|국가"},
    {City, kStrong,
     u"city|town|city town|city name|cityname|=ort|=stadt|wohnort|ortschaft|ville|=commune|ciudad|localidad|poblacion|"
     u"municipio|=citta|comune|localita|plaats|woonplaats|plaatsnaam|cidade|suburb|locality|=gemeinde|miasto|город|"
     u"市区町村|"
     u"城市|=市|도시"},
    {State, kStrong,
     u"state|prov|province|state province|stateprovince|provincia|bundesland|=kanton|=canton|departement|=estado|"
     u"provincie|provinz|=prefecture|都道府県|省份|область"},
    {Zip, kStrong,
     u"~zip|zip code|zipcode|zippostal|postal|postal code|postalcode|post code|postcode|=plz|postleitzahl|"
     u"code postal|codepostal|codigo postal|codigopostal|codice postale|=cap|=cep|=cp|pin "
     u"code|pincode|postnummer|индекс|"
     u"郵便番号|邮编|邮政编码|우편번호"},
    {Bank, kStrong, u"bank|bank name|bankname|=banque|=banco|=banca|kreditinstitut|issuing bank|issuer"},
    {User, kStrong,
     u"username|user name|userid|user id|user login|userlogin|login name|loginname|loginid|login id|logon|benutzername|"
     u"benutzerkennung|nutzername|anmeldename|nom d utilisateur|utilisateur|identifiant|usuario|nombre de usuario|"
     u"nome utente|=utente|gebruikersnaam|nome de usuario|имя пользователя|логин|ユーザー名|用户名|아이디|screen "
     u"name|screenname|"
     u"penname|pen name"},
    {Other, kStrong,
     u"message|nachricht|kommentar|comment|comments|mensaje|messaggio|bericht|bemerkung|anmerkung|=notes|remarks|"
     u"subject|betreff|=sujet|asunto|oggetto|feedback|description|your review|question|enquiry|inquiry|anfrage"},

    // Words that give way to those above.
    {Title, kWeak,
     u"title|salutation|anrede|civilite|honorific|tratamiento|titolo|aanhef|tratamento|name prefix|=prefix"},
    {Address1, kWeak,
     u"addr|address|adresse|anschrift|postal address|adresse postale|postadresse|postanschrift|direccion "
     u"postal|direccion|indirizzo|adres|endereco|адрес|アドレス"},
    {Other, kWeak, u"display name|displayname|alias|=handle"},
    {FullName, kWeak, u"name|=nom|nombre|=nome|=naam|=navn|имя|名前|お名前"},
    {FirstName, kWeak, u"=first|firstid"},
    {LastName, kWeak, u"=last|lastid"},
    {User, kWeak, u"user|login|nickname|=nick|user nick|ニックネーム|=acct|benutzer"},
    {CardCode, kWeak,
     u"validation|valid num|valid code|validnum|validcode|v num|v code|vnum|vcode|security code|securitycode|"
     u"security number|verification value|verification number|verification code|prufnummer|prufziffer|sicherheitscode|"
     u"code de securite|codigo de seguridad|codice di sicurezza|codice sicurezza|veiligheidscode|codigo de seguranca|"
     u"セキュリティコード|安全码"},
    {State, kWeak, u"=region|=county|administrative area|comunidad autonoma"},
    {CardNumber, kWeak, u"creditcard|=cc|kreditkarte|carte bancaire"},
    {Day, kWeak, u"=day|=dd|=tag|=jour|=dia|giorno|=dag|=日"},
    {Month, kWeak, u"=month|=mm|=mon|=monat|=mois|=mes|mese|=maand|=month mm|=月|=mth|месяц"},
    {Year, kWeak, u"=year|=yyyy|=yy|=yr|=jahr|=annee|=ano|=anno|=jaar|=jjjj|=aaaa|=年|=год"},
    {CardWord, kWeak,
     u"card|=credit|payment|karte|kreditkarten|=carte|tarjeta|=carta|cartao|カード|=debit|billing card|karten"},
};

} // namespace

std::span<const FieldPhrases> fieldPhrases()
{
    return kPhrases;
}
