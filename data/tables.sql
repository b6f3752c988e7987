-- Tables that both book images share to the letter.
create table tNum (Id1 integer primary key autoincrement, Table1 char(20), Max1 integer, Mark1 bit);
create table tSet (Key1 char(20), Note1 char(50));
create table tKind (ID1 integer, Name1 char(50), Sort1 char(18), Note1 varchar(10), Money float default 0,
    nAdd float default 0, nReduce float default 0, Note2 varchar(50), nHide integer default 0, IID integer default 0);
create table tAccount (Id1 integer, IIID integer default -1, IIID1 integer default -1, Title1 char(50),
    Type1 char(18), TypeName1 char(50), Value1 float, Mark1 bit default 0, Note1 text, Date1 char(10),
    Time1 char(8), Date2 char(10) default '', Time2 char(8) default '', nSign integer default 1,
    IID integer default -1, bIsMain bit default 0, sMe char(4) default '记账', sPic char(8) default '0');
create table tNotebook (ID1 integer, Title1 char(50), Mark1 bit, Date1 char(10), Time1 char(8),
    Note1 varchar(100), bWake bit, WakeDate char(10), bWakeOk bit, sMe char(4) default '记事', sPic char(8),
    bIsMain bit default 1);
create table tAccountTemplate (ID1 integer primary key autoincrement, Title1 char(50));
create table tAccountWeb (ID1 integer primary key autoincrement, Title1 char(50), Type1 integer,
    TypeName1 char(50), Value1 float, Date1 char(10), Time1 char(8), nSign1 integer, Type2 integer,
    TypeName2 char(50), nSign2 integer, Note1 text, bPassIdChk bit default 0, AccId integer, AccName char(20),
    AccValue float, AccSign integer, AccNote char(50));
create table tAccountWebDel (ID1 integer primary key autoincrement, Title1 char(50), Type1 integer,
    TypeName1 char(50), Value1 float, Date1 char(10), Time1 char(8), nSign1 integer, Type2 integer,
    TypeName2 char(50), nSign2 integer, Note1 text, bPassIdChk bit default 0, AccId integer, AccName char(20),
    AccValue float, AccSign integer, AccNote char(50), sDelDate char(19));
create table tTjDate (Id1 integer, Date1 char(10), Value1 float, Value2 float, ValueC float);
create table tPrint (ID1 integer primary key autoincrement, sKey char(20), sDef char(20), sTable char(20),
    sMark char(10), bListPrint integer, nListPrintW integer, nSort integer, nDist integer, sReplace char(50),
    sType char(10));

insert into tSet values ('booknote', '这是一个空账本!');
insert into tSet values ('pass', '');
insert into tSet values ('year', '2016');
insert into tSet values ('dbversion', '10.0');
insert into tSet values ('CreateDate', '2016-08-10');
insert into tSet values ('dbversionok', '1');

insert into tPrint values
    (1, 'Title1', '事情', 'tAccount', null, 1, 30, 1, 0, null, null),
    (2, 'TypeName1', '分类名称', 'tAccount', null, 1, 20, 3, 0, null, null),
    (3, 'nSign', '符号', 'tAccount', null, 1, 8, 4, 2, '-1/1,－/', null),
    (4, 'Value1', '￥金额', 'tAccount', null, 1, 16, 5, 1, null, 'money'),
    (5, 'Date1', '日期', 'tAccount', null, 1, 21, 6, 0, null, null),
    (6, 'Time1', '时间', 'tAccount', null, 1, 12, 7, 0, null, null),
    (7, 'Mark1', '重要', 'tAccount', null, 1, 11, 8, 0, 'True/False,√/', null),
    (8, 'Note1', '备注', 'tAccount', null, 1, 40, 9, 0, null, null),
    (9, 'Title1', '标题', 'tNoteBook', null, 1, 50, 1, 0, null, null),
    (10, 'Date1', '日期', 'tNoteBook', null, 1, 22, 2, 0, null, null),
    (11, 'Time1', '时间', 'tNoteBook', null, 1, 16, 3, 0, null, null),
    (12, 'Mark1', '重要', 'tNoteBook', null, 1, 12, 4, 0, 'True/False,√/', null),
    (13, 'bWake', '提醒', 'tNoteBook', null, 1, 10, 5, 0, 'True/False,√/', null),
    (14, 'bWakeOk', '提醒完成?', 'tNoteBook', null, 1, 16, 6, 0, 'True/False,已完成/', null),
    (15, 'Note1', '内容', 'tNoteBook', null, 1, 120, 7, 0, null, null),
    (16, 'Date1', '期间', 'tTjDate', null, 1, 40, 1, 2, null, null),
    (18, 'Value1', '￥增加额', 'tTjDate', null, 1, 40, 2, 1, null, 'money'),
    (19, 'Value2', '￥减少额', 'tTjDate', null, 1, 40, 3, 1, null, 'money'),
    (20, 'ValueC', '￥余额', 'tTjDate', null, 1, 40, 4, 1, null, 'money'),
    (21, 'Sort1', '编号', 'tTjKind', null, 1, 15, 1, 0, null, null),
    (22, 'Name1', '名称', 'tTjKind', null, 1, 50, 2, 0, null, null),
    (23, 'nAdd', '￥增加额', 'tTjKind', null, 1, 30, 3, 1, null, 'money'),
    (24, 'nReduce', '￥减少额', 'tTjKind', null, 1, 30, 4, 1, null, 'money'),
    (25, 'Money', '￥余额', 'tTjKind', null, 1, 30, 5, 1, null, 'money'),
    (26, 'Value1', '￥金额', 'tSubAccItem', null, 1, 16, 4, 1, null, 'money'),
    (27, 'nSign', '符号', 'tSubAccItem', null, 1, 8, 3, 2, '-1/1,－/', null),
    (28, 'Date1', '日期', 'tSubAccItem', null, 1, 21, 1, 0, null, null),
    (29, 'Time1', '时间', 'tSubAccItem', null, 1, 12, 2, 0, null, null),
    (31, 'Title1', '事情', 'tSubAccItem', null, 1, 45, 5, 0, null, null),
    (32, 'SubAccName1', '账户名称', 'tSubAccItem', null, 1, 40, 6, 0, null, null),
    (33, 'SubAccKey', '账户编号', 'tSubAccItem', null, 1, 25, 7, 0, null, null),
    (42, 'Title1', '标题', 'tNoteBook', '', 0, 0, 1, 0, null, null),
    (43, 'Mark1', '重要', 'tNoteBook', '', 0, 0, 2, 0, 'True/False,√/', null),
    (44, 'Date1', '增加日期', 'tNoteBook', '', 0, 0, 3, 0, null, null),
    (45, 'Time1', '增加时间', 'tNoteBook', '', 0, 0, 4, 0, null, null),
    (46, 'Note1', '内容', 'tNoteBook', '', 0, 0, 5, 0, null, null),
    (47, 'Type1', '类号', 'tAccount', null, 1, 20, 2, 1, null, null);
