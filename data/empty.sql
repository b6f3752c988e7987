-- The empty template: what every new book starts from.
create table tSubAcc (Id1 integer, Name1 char(20), Sort1 char(18), Date1 char(10), Money float, nAdd float,
    nReduce float, Note1 varchar(50), nHide integer, IID integer);
create table tSubAccItem (Id1 integer, AccId integer, Title1 char(50), SubAccKey char(18), SubAccName1 char(50),
    TypeName1 char(50), Value1 float, nSign integer, Date1 char(10), Time1 char(8));
create table tPic (ID1 integer, bitPic blob, Note1 char(50), sFromTable char(10), lFromId integer,
    lFromId1 integer);
create table tTjKind (ID1 integer primary key autoincrement, Name1 char(50), Sort1 char(18), nAdd float,
    nReduce float, Money float, nHasData bit);

insert into tNum values (1, 'taccount', 1, 0), (2, 'tkind', 2, 0), (3, 'tnotebook', 1, 0), (5, 'tpic', 1, 0),
    (6, 'tsubacc', 1, 0), (7, 'tsubaccitem', 1, 0);
insert into tKind values (9999, '↑↓余额调整', '00', '2016-01-01', 0, 0, 0, '分类及账户期初、中、末余额调整', 0, 0);

delete from sqlite_sequence;
insert into sqlite_sequence values ('tNum', 9), ('tPrint', 47), ('tTjKind', 48), ('tAccountWeb', 0),
    ('tAccountWebDel', 0), ('tAccountTemplate', 0);
