-- The sample book 专业版例子.
create table tSubAcc (Id1 integer, Name1 char(20), Sort1 char(18), Date1 char(10), Money float, nAdd float,
    nReduce float, Note1 varchar(50), nHide integer, IID integer default 0);
create table tSubAccItem (Id1 integer, AccId integer, Title1 char(50), SubAccKey char(18), SubAccName1 char(50),
    Type1 char(18), TypeName1 char(50), Value1 float, nSign integer, Date1 char(10), Time1 char(8));
create table tPic (ID1 integer, bitPic blob, Note1 char(50), sFromTable char(10), lFromId integer,
    lFromId1 integer default -1);
create table tTjKind (ID1 integer, Name1 char(50), Sort1 char(18), nAdd float, nReduce float, Money float,
    nHasData bit);

insert into tNum values (1, 'taccount', 8, 0), (2, 'tkind', 17, 0), (3, 'tnotebook', 2, 0), (5, 'tpic', 2, 0),
    (6, 'tsubacc', 8, 0), (7, 'tsubaccitem', 5, 0);

insert into tKind (ID1, Name1, Sort1, Note1, Money, nAdd, nReduce, Note2) values
    (9999, '↑↓余额调整', '00', '2016-01-01', 0, 0, 0, null),
    (1, '收入', '01', '2016-08-27', 0, 0, 0, ''),
    (2, '产品收入', '0101', '2016-08-27', 5000, 5000, 0, ''),
    (3, '项目收入', '0102', '2016-08-27', 0, 0, 0, ''),
    (4, '成本', '02', '2016-08-27', 0, 0, 0, ''),
    (5, '办公费用', '0201', '2016-08-27', 2100, 2100, 0, ''),
    (6, '生产成本', '0202', '2016-08-27', 0, 0, 0, ''),
    (7, '资产', '03', '2016-08-27', 0, 0, 0, ''),
    (8, '现金', '0301', '2016-08-27', 0, 0, 0, ''),
    (9, '银行存款', '0302', '2016-08-27', 0, 0, 0, ''),
    (10, '负债', '04', '2016-08-27', 0, 0, 0, ''),
    (11, '信用卡', '0401', '2016-08-27', 0, 0, 0, ''),
    (12, '农行', '030201', '2016-08-27', 2900, 5000, 2100, ''),
    (13, '工行', '030202', '2016-08-27', 0, 0, 0, ''),
    (16, '应收款', '0303', '2016-08-27', 8500, 8500, 0, '');

insert into tSubAcc values
    (4, '东华公司', '01', '2016-08-27', 5000, 5000, 0, '', 0, 0),
    (5, '大宇公司', '02', '2016-08-27', 8500, 8500, 0, '', 0, 0),
    (6, '开发项目', '03', '2016-08-27', 0, 0, 0, '', 0, 0),
    (7, '软件开发', '0301', '2016-08-27', 0, 0, 0, '', 0, 0);

insert into tAccount (Id1, Title1, Type1, TypeName1, Value1, Date1, Time1, nSign, IID, IIID, bIsMain, sPic, Note1)
    values
    (3, '购买办公桌', '0201', '办公费用', 2100, '2016-01-01', '14:08', 1, 4, -1, 1, '0', '富华家俱城，1.2米'),
    (4, '购买办公桌', '030201', '农行', 2100, '2016-01-01', '14:08', -1, 3, -1, 0, '0', '富华家俱城，1.2米'),
    (5, '软件定制收入', '030201', '农行', 5000, '2016-09-03', '14:10', 1, 6, 3, 1, '0', '合同号：98'),
    (6, '软件定制收入', '0101', '产品收入', 5000, '2016-09-03', '14:10', 1, 5, 3, 0, '0', '合同号：98'),
    (7, '赊销选果机控制系统', '0303', '应收款', 8500, '2016-09-01', '14:13', 1, -1, 4, 1, '1', null);

insert into tSubAccItem (Id1, AccId, Title1, SubAccKey, SubAccName1, TypeName1, Value1, nSign, Date1, Time1) values
    (3, 5, '软件定制收入', '01', '东华公司', '农行', 5000, 1, '2016-09-03', '14:10'),
    (4, 7, '赊销选果机控制系统', '02', '大宇公司', '应收款', 8500, 1, '2016-09-01', '14:13');

insert into tPic values (1, file('sample.jpg'), '选果机控制系统.jpg', 'tAccount', 7, -1);

insert into tNotebook (ID1, Title1, Mark1, Date1, Time1, Note1, bWake, WakeDate, bWakeOk, sPic) values
    (1, '欢迎使用墨鹊理财', 0, '2016-09-03', '14:16:20',
     '这是例子账本，可以放心试用：增加记账、按分类查看余额、记事和提醒。正式记账请先新建一个自己的账本。', 0, '', 0, '0');

insert into tTjDate values (1, '2016-01', 2100, 2100, 0), (2, '2016-09', 18500, 0, 18500);
insert into tTjKind
    select row_number() over (order by Sort1), Name1, Sort1, nAdd, nReduce, Money, Money <> 0 from tKind
    order by Sort1;

update tPrint set nListPrintW = 30, nDist = 1 where ID1 = 21;
update tPrint set nListPrintW = 25 where ID1 in (23, 24, 25);
update tPrint set nListPrintW = 20 where ID1 = 26;
update tPrint set nSort = 7 where ID1 = 32;
update tPrint set nSort = 6 where ID1 = 33;

delete from sqlite_sequence;
insert into sqlite_sequence values ('tNum', 9), ('tPrint', 47), ('tAccountWeb', 0), ('tAccountWebDel', 0),
    ('tAccountTemplate', 1);
