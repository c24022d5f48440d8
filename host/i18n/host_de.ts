<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name></name>
    <message id="txt_002">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="txt_003">
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message id="txt_004">
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message id="txt_039">
        <source>FM</source>
        <translation>UKW</translation>
    </message>
    <message id="txt_040">
        <source>MHz</source>
        <translation>MHz</translation>
    </message>
    <message id="txt_041">
        <source>Seek Up</source>
        <translation>Suchlauf aufwärts</translation>
    </message>
    <message id="txt_042">
        <source>Seek Down</source>
        <translation>Suchlauf abwärts</translation>
    </message>
    <message id="txt_043">
        <source>Local Seek Up</source>
        <translation>Ortssender aufwärts</translation>
    </message>
    <message id="txt_044">
        <source>Local Seek Down</source>
        <translation>Ortssender abwärts</translation>
    </message>
    <message id="txt_045">
        <source>Auto Store</source>
        <translation>Autom. Speichern</translation>
    </message>
    <message id="txt_047">
        <source>PTY Search Down</source>
        <translation>PTY-Suche abwärts</translation>
    </message>
    <message id="txt_048">
        <source>PTY Search Up</source>
        <translation>PTY-Suche aufwärts</translation>
    </message>
    <message id="txt_049">
        <source>AM</source>
        <translation>MW</translation>
    </message>
    <message id="txt_050">
        <source>kHz</source>
        <translation>kHz</translation>
    </message>
    <message id="txt_051">
        <source>PTY</source>
        <translation>Programmtyp</translation>
    </message>
    <message id="txt_053">
        <source>News</source>
        <translation>Nachrichten</translation>
    </message>
    <message id="txt_054">
        <source>Current Affairs</source>
        <translation>Aktuelles</translation>
    </message>
    <message id="txt_055">
        <source>Information</source>
        <translation>Service</translation>
    </message>
    <message id="txt_056">
        <source>Sport</source>
        <translation>Sport</translation>
    </message>
    <message id="txt_057">
        <source>Education</source>
        <translation>Bildung</translation>
    </message>
    <message id="txt_058">
        <source>Drama</source>
        <translation>Hörspiel</translation>
    </message>
    <message id="txt_059">
        <source>Culture</source>
        <translation>Kultur</translation>
    </message>
    <message id="txt_060">
        <source>Science</source>
        <translation>Wissenschaft</translation>
    </message>
    <message id="txt_061">
        <source>Varied</source>
        <translation>Unterhaltung</translation>
    </message>
    <message id="txt_062">
        <source>Pop Music</source>
        <translation>Popmusik</translation>
    </message>
    <message id="txt_063">
        <source>Rock Music</source>
        <translation>Rockmusik</translation>
    </message>
    <message id="txt_064">
        <source>Easy Listening</source>
        <translation>Unterhaltungsmusik</translation>
    </message>
    <message id="txt_065">
        <source>Light Classical</source>
        <translation>Leichte Klassik</translation>
    </message>
    <message id="txt_066">
        <source>Serious Classical</source>
        <translation>Ernste Klassik</translation>
    </message>
    <message id="txt_067">
        <source>Other Music</source>
        <translation>Sonstige Musik</translation>
    </message>
    <message id="txt_068">
        <source>Weather</source>
        <translation>Wetter</translation>
    </message>
    <message id="txt_069">
        <source>Finance</source>
        <translation>Wirtschaft</translation>
    </message>
    <message id="txt_070">
        <source>Children's Programmes</source>
        <translation>Kinderprogramm</translation>
    </message>
    <message id="txt_071">
        <source>Social Affairs</source>
        <translation>Soziales</translation>
    </message>
    <message id="txt_072">
        <source>Religion</source>
        <translation>Religion</translation>
    </message>
    <message id="txt_073">
        <source>Phone-In</source>
        <translation>Anrufsendung</translation>
    </message>
    <message id="txt_074">
        <source>Travel</source>
        <translation>Reise</translation>
    </message>
    <message id="txt_075">
        <source>Leisure</source>
        <translation>Freizeit</translation>
    </message>
    <message id="txt_076">
        <source>Jazz Music</source>
        <translation>Jazz</translation>
    </message>
    <message id="txt_077">
        <source>Country Music</source>
        <translation>Country</translation>
    </message>
    <message id="txt_078">
        <source>National Music</source>
        <translation>Landesmusik</translation>
    </message>
    <message id="txt_079">
        <source>Oldies Music</source>
        <translation>Oldies</translation>
    </message>
    <message id="txt_080">
        <source>Folk Music</source>
        <translation>Volksmusik</translation>
    </message>
    <message id="txt_081">
        <source>Documentary</source>
        <translation>Dokumentation</translation>
    </message>
    <message id="txt_082">
        <source>Sports</source>
        <translation>Sport</translation>
    </message>
    <message id="txt_083">
        <source>Talk</source>
        <translation>Gespräch</translation>
    </message>
    <message id="txt_084">
        <source>Rock</source>
        <translation>Rock</translation>
    </message>
    <message id="txt_085">
        <source>Classic Rock</source>
        <translation>Klassischer Rock</translation>
    </message>
    <message id="txt_086">
        <source>Adult Hits</source>
        <translation>Erwachsenen-Hits</translation>
    </message>
    <message id="txt_087">
        <source>Soft Rock</source>
        <translation>Soft Rock</translation>
    </message>
    <message id="txt_088">
        <source>Top 40</source>
        <translation>Top 40</translation>
    </message>
    <message id="txt_089">
        <source>Country</source>
        <translation>Country</translation>
    </message>
    <message id="txt_090">
        <source>Oldies</source>
        <translation>Oldies</translation>
    </message>
    <message id="txt_091">
        <source>Soft</source>
        <translation>Softmusik</translation>
    </message>
    <message id="txt_092">
        <source>Nostalgia</source>
        <translation>Nostalgie</translation>
    </message>
    <message id="txt_093">
        <source>Jazz</source>
        <translation>Jazz</translation>
    </message>
    <message id="txt_094">
        <source>Classical</source>
        <translation>Klassik</translation>
    </message>
    <message id="txt_095">
        <source>Rhythm and Blues</source>
        <translation>Rhythm and Blues</translation>
    </message>
    <message id="txt_096">
        <source>Soft Rhythm and Blues</source>
        <translation>Soft Rhythm and Blues</translation>
    </message>
    <message id="txt_097">
        <source>Foreign Language</source>
        <translation>Fremdsprachig</translation>
    </message>
    <message id="txt_098">
        <source>Religious Music</source>
        <translation>Religiöse Musik</translation>
    </message>
    <message id="txt_099">
        <source>Religious Talk</source>
        <translation>Religiöses Gespräch</translation>
    </message>
    <message id="txt_100">
        <source>Personality</source>
        <translation>Persönlichkeiten</translation>
    </message>
    <message id="txt_101">
        <source>Public</source>
        <translation>Öffentlich</translation>
    </message>
    <message id="txt_102">
        <source>College</source>
        <translation>Hochschule</translation>
    </message>
    <message id="txt_103">
        <source>Weather</source>
        <translation>Wetter</translation>
    </message>
    <message id="txt_104">
        <source>Searching</source>
        <translation>Suche läuft</translation>
    </message>
    <message id="txt_105">
        <source>Not Found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message id="txt_106">
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message id="txt_107">
        <source>Spanish Talk</source>
        <translation>Spanisches Wort</translation>
    </message>
    <message id="txt_108">
        <source>Spanish Music</source>
        <translation>Spanische Musik</translation>
    </message>
    <message id="txt_109">
        <source>Hip Hop</source>
        <translation>Hip-Hop</translation>
    </message>
    <message id="txt_110">
        <source>Auto Store</source>
        <translation>Autom. Speichern</translation>
    </message>
    <message id="txt_111">
        <source>Local</source>
        <translation>Ortssender</translation>
    </message>
    <message id="txt_112">
        <source>Traffic</source>
        <translation>Verkehrsfunk</translation>
    </message>
    <message id="txt_113">
        <source>Alternative Frequency</source>
        <translation>Alternativfrequenz</translation>
    </message>
    <message id="txt_114">
        <source>Regional</source>
        <translation>Regional</translation>
    </message>
    <message id="txt_115">
        <source>PTY Search</source>
        <translation>PTY-Suche</translation>
    </message>
    <message id="txt_116">
        <source>Radio Options</source>
        <translation>Radio-Optionen</translation>
    </message>
    <message id="txt_189">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
