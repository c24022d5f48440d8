<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
<context>
    <name></name>
    <message id="txt_002">
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message id="txt_003">
        <source>Off</source>
        <translation>Off</translation>
    </message>
    <message id="txt_004">
        <source>On</source>
        <translation>On</translation>
    </message>
    <message id="txt_039">
        <source>FM</source>
        <translation>FM</translation>
    </message>
    <message id="txt_040">
        <source>MHz</source>
        <translation>MHz</translation>
    </message>
    <message id="txt_041">
        <source>Seek Up</source>
        <translation>Seek Up</translation>
    </message>
    <message id="txt_042">
        <source>Seek Down</source>
        <translation>Seek Down</translation>
    </message>
    <message id="txt_043">
        <source>Local Seek Up</source>
        <translation>Local Seek Up</translation>
    </message>
    <message id="txt_044">
        <source>Local Seek Down</source>
        <translation>Local Seek Down</translation>
    </message>
    <message id="txt_045">
        <source>Auto Store</source>
        <translation>Auto Store</translation>
    </message>
    <message id="txt_047">
        <source>PTY Search Down</source>
        <translation>PTY Search Down</translation>
    </message>
    <message id="txt_048">
        <source>PTY Search Up</source>
        <translation>PTY Search Up</translation>
    </message>
    <message id="txt_049">
        <source>AM</source>
        <translation>AM</translation>
    </message>
    <message id="txt_050">
        <source>kHz</source>
        <translation>kHz</translation>
    </message>
    <message id="txt_051">
        <source>PTY</source>
        <translation>PTY</translation>
    </message>
    <message id="txt_053">
        <source>News</source>
        <translation>News</translation>
    </message>
    <message id="txt_054">
        <source>Current Affairs</source>
        <translation>Current Affairs</translation>
    </message>
    <message id="txt_055">
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message id="txt_056">
        <source>Sport</source>
        <translation>Sport</translation>
    </message>
    <message id="txt_057">
        <source>Education</source>
        <translation>Education</translation>
    </message>
    <message id="txt_058">
        <source>Drama</source>
        <translation>Drama</translation>
    </message>
    <message id="txt_059">
        <source>Culture</source>
        <translation>Culture</translation>
    </message>
    <message id="txt_060">
        <source>Science</source>
        <translation>Science</translation>
    </message>
    <message id="txt_061">
        <source>Varied</source>
        <translation>Varied</translation>
    </message>
    <message id="txt_062">
        <source>Pop Music</source>
        <translation>Pop Music</translation>
    </message>
    <message id="txt_063">
        <source>Rock Music</source>
        <translation>Rock Music</translation>
    </message>
    <message id="txt_064">
        <source>Easy Listening</source>
        <translation>Easy Listening</translation>
    </message>
    <message id="txt_065">
        <source>Light Classical</source>
        <translation>Light Classical</translation>
    </message>
    <message id="txt_066">
        <source>Serious Classical</source>
        <translation>Serious Classical</translation>
    </message>
    <message id="txt_067">
        <source>Other Music</source>
        <translation>Other Music</translation>
    </message>
    <message id="txt_068">
        <source>Weather</source>
        <translation>Weather</translation>
    </message>
    <message id="txt_069">
        <source>Finance</source>
        <translation>Finance</translation>
    </message>
    <message id="txt_070">
        <source>Children's Programmes</source>
        <translation>Children's Programmes</translation>
    </message>
    <message id="txt_071">
        <source>Social Affairs</source>
        <translation>Social Affairs</translation>
    </message>
    <message id="txt_072">
        <source>Religion</source>
        <translation>Religion</translation>
    </message>
    <message id="txt_073">
        <source>Phone-In</source>
        <translation>Phone-In</translation>
    </message>
    <message id="txt_074">
        <source>Travel</source>
        <translation>Travel</translation>
    </message>
    <message id="txt_075">
        <source>Leisure</source>
        <translation>Leisure</translation>
    </message>
    <message id="txt_076">
        <source>Jazz Music</source>
        <translation>Jazz Music</translation>
    </message>
    <message id="txt_077">
        <source>Country Music</source>
        <translation>Country Music</translation>
    </message>
    <message id="txt_078">
        <source>National Music</source>
        <translation>National Music</translation>
    </message>
    <message id="txt_079">
        <source>Oldies Music</source>
        <translation>Oldies Music</translation>
    </message>
    <message id="txt_080">
        <source>Folk Music</source>
        <translation>Folk Music</translation>
    </message>
    <message id="txt_081">
        <source>Documentary</source>
        <translation>Documentary</translation>
    </message>
    <message id="txt_082">
        <source>Sports</source>
        <translation>Sports</translation>
    </message>
    <message id="txt_083">
        <source>Talk</source>
        <translation>Talk</translation>
    </message>
    <message id="txt_084">
        <source>Rock</source>
        <translation>Rock</translation>
    </message>
    <message id="txt_085">
        <source>Classic Rock</source>
        <translation>Classic Rock</translation>
    </message>
    <message id="txt_086">
        <source>Adult Hits</source>
        <translation>Adult Hits</translation>
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
        <translation>Soft</translation>
    </message>
    <message id="txt_092">
        <source>Nostalgia</source>
        <translation>Nostalgia</translation>
    </message>
    <message id="txt_093">
        <source>Jazz</source>
        <translation>Jazz</translation>
    </message>
    <message id="txt_094">
        <source>Classical</source>
        <translation>Classical</translation>
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
        <translation>Foreign Language</translation>
    </message>
    <message id="txt_098">
        <source>Religious Music</source>
        <translation>Religious Music</translation>
    </message>
    <message id="txt_099">
        <source>Religious Talk</source>
        <translation>Religious Talk</translation>
    </message>
    <message id="txt_100">
        <source>Personality</source>
        <translation>Personality</translation>
    </message>
    <message id="txt_101">
        <source>Public</source>
        <translation>Public</translation>
    </message>
    <message id="txt_102">
        <source>College</source>
        <translation>College</translation>
    </message>
    <message id="txt_103">
        <source>Weather</source>
        <translation>Weather</translation>
    </message>
    <message id="txt_104">
        <source>Searching</source>
        <translation>Searching</translation>
    </message>
    <message id="txt_105">
        <source>Not Found</source>
        <translation>Not Found</translation>
    </message>
    <message id="txt_106">
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message id="txt_107">
        <source>Spanish Talk</source>
        <translation>Spanish Talk</translation>
    </message>
    <message id="txt_108">
        <source>Spanish Music</source>
        <translation>Spanish Music</translation>
    </message>
    <message id="txt_109">
        <source>Hip Hop</source>
        <translation>Hip Hop</translation>
    </message>
    <message id="txt_110">
        <source>Auto Store</source>
        <translation>Auto Store</translation>
    </message>
    <message id="txt_111">
        <source>Local</source>
        <translation>Local</translation>
    </message>
    <message id="txt_112">
        <source>Traffic</source>
        <translation>Traffic</translation>
    </message>
    <message id="txt_113">
        <source>Alternative Frequency</source>
        <translation>Alternative Frequency</translation>
    </message>
    <message id="txt_114">
        <source>Regional</source>
        <translation>Regional</translation>
    </message>
    <message id="txt_115">
        <source>PTY Search</source>
        <translation>PTY Search</translation>
    </message>
    <message id="txt_116">
        <source>Radio Options</source>
        <translation>Radio Options</translation>
    </message>
    <message id="txt_189">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
</TS>
